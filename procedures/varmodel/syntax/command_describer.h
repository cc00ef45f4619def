// The syntax of the command, told to the host's universal parser.

#pragma once

#include <cstdint>

#include "host/command_syntax.h"
#include "host/parser_message.h"

namespace varmodel {

class VARCommandDescriber {
 public:
  // The descriptor stays the caller's and must outlive the describer.
  explicit VARCommandDescriber(CommandDescriptor* commandDescriptor);

  // Adds every subcommand; 0 when all were added, else the first other result, 1 after an exception.
  std::int32_t describeCommand();
  // Adds one subcommand: 0 the global part, 1 MISSING, 2 MODEL .. 7 AUXILIARY; 1 for any other index.
  std::int32_t setSubCommandDescription(unsigned index);

 private:
  CommandDescriptor* commandDescriptor_;
  ParserMessage parserMessage_;
};

}  // namespace varmodel
