// The syntax of the command, told to the host's universal parser.

#pragma once

#include <string>
#include <vector>

#include "host/command_syntax.h"

namespace vardynamics {

// Adds every subcommand to the descriptor; `variables` are the names of the dataset's. Host exceptions pass through.
void describeCommand(CommandDescriptor& command, const std::vector<std::string>& variables);

}  // namespace vardynamics
