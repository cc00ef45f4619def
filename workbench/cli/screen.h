// What a run shows in the terminal: errors and warnings on standard error, output and notes on standard output.

#pragma once

#include "workbench/cli/options.h"
#include "workbench/cli/outcome.h"
#include "workbench/session/session.h"

namespace workbench {

void showRun(const Session& session, const CapturedStreams& streams, const Outcome& outcome,
             const OutputOptions& options);

// "varmodel: TEXT" on standard error.
void showError(const std::string& text);

}  // namespace workbench
