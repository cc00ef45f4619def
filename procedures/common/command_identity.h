// Under which name and title a command reports to the user.

#pragma once

#include "host/parser_message.h"

namespace procedures {

struct CommandIdentity {
  const char* commandName;
  const char* title;
};

inline void identify(ParserMessage& reporter, const CommandIdentity& identity) {
  reporter.SetCommandName(identity.commandName);
  reporter.SetProcedureTitle(identity.title);
}

}  // namespace procedures
