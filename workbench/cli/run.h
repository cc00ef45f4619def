// Running one job from start to finish.

#pragma once

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"

namespace workbench {

// Loads the data, runs the procedure, shows and writes what came of it. Returns the program's exit code; a failure
// before the procedure is called is thrown (UsageError, DataError, OutputError).
int runJob(Job job, const OutputOptions& options);

}  // namespace workbench
