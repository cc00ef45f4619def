// The syntax of the command, told to the host's universal parser.

#pragma once

#include "host/command_syntax.h"

namespace vardynamics {

// Adds every subcommand to the descriptor. Host exceptions pass through.
void describeCommand(CommandDescriptor& command);

}  // namespace vardynamics
