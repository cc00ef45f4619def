// What to do about a gap in the sample.

#pragma once

#include "workbench/commands/common/command.h"

namespace workbench::vardynamics {

// The options, or the lines of the job, that leave the longest run of complete rows; empty where periods of the cases'
// unit cannot be written in them.
Notice gapHint(const FinishedRun& run, bool excludeUserMissing);

}  // namespace workbench::vardynamics
