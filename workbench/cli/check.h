// Whether a job can be run, without running it.

#pragma once

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"

namespace workbench {

// Reads the data, dates the cases and parses every command, and tells what was found. Returns the exit code that a run
// would end with as far as that decides; throws as runJob does.
int checkJob(const Job& job, const OutputOptions& options);

}  // namespace workbench
