// What a run shows in the terminal: output and notes on standard output, then errors, warnings and their hints on
// standard error, where they are the last thing seen.

#pragma once

#include "workbench/cli/options.h"
#include "workbench/commands/common/run_messages.h"

namespace workbench {

// With -q only what explains a failure is shown.
void showRun(const FinishedRun& run, const std::vector<RunMessage>& messages, const OutputOptions& options);

// A line on standard output. Throws OutputError.
void showLine(const std::string& text);

// "error: TEXT" on standard error.
void showError(const std::string& text);

}  // namespace workbench
