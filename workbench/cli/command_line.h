// The command line of the program.

#pragma once

#include <variant>

#include "workbench/cli/options.h"

namespace workbench {

// Asked for help or the version, or wrong: the text is already printed, the program ends with this code.
struct EndNow {
  int exitCode = 0;
};

using Invocation = std::variant<RunOptions, ComposeOptions, DescribeOptions, EndNow>;

Invocation parseCommandLine(int argc, const char* const* argv);

}  // namespace workbench
