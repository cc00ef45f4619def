// What a run shows in the terminal: output and notes on standard output, then errors, warnings and their hints on
// standard error, where they are the last thing seen.

#pragma once

#include "workbench/cli/options.h"
#include "workbench/cli/outcome.h"
#include "workbench/cli/run_messages.h"
#include "workbench/session/session.h"

namespace workbench {

// With -q only what explains a failure is shown.
void showRun(const Session& session, const CapturedStreams& streams, const Outcome& outcome,
             const std::vector<RunMessage>& messages, const OutputOptions& options);

// "error: TEXT" on standard error.
void showError(const std::string& text);

}  // namespace workbench
