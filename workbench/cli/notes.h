// What the workbench tells the user beside the procedure's own output: notes under it, and hints below errors.

#pragma once

#include <string>
#include <vector>

#include "workbench/cli/outcome.h"
#include "workbench/session/session.h"

namespace workbench {

// Notes in reading order, each a finished sentence or more; equal ones once.
std::vector<std::string> collectNotes(const Session& session, const CapturedStreams& streams);

// What to do about an error or warning message of the procedure; empty when there is nothing to add.
std::string hintFor(const std::string& message, const Session& session);

// Why a failed run left no error message, as far as its trace tells: the step, the likely cause, the last trace lines.
std::string explainSilentStop(const Outcome& outcome, const CapturedStreams& streams);

}  // namespace workbench
