// The examples below the options of a subcommand's help.

#pragma once

#include <CLI/CLI.hpp>

namespace workbench {

// For every subcommand that `program` has; each can be run as it stands where the folder examples/ is.
void addExamples(CLI::App& program);

}  // namespace workbench
