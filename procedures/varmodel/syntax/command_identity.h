// Under which name and title the command reports to the user.

#pragma once

#include "host/parser_message.h"

namespace varmodel {

inline constexpr const char* kCommandName = "VARMODEL";
inline constexpr const char* kProcedureTitle = "Vector Autoregressive Models";

inline void identify(ParserMessage& reporter) {
  reporter.SetCommandName(kCommandName);
  reporter.SetProcedureTitle(kProcedureTitle);
}

}  // namespace varmodel
