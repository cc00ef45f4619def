// The job that `varmodel fit` runs.

#pragma once

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"

namespace workbench {

// Composes the command, prints it unless the run is quiet, and collects the settings. Throws UsageError for a --start
// component that is not UNIT=N.
Job makeFitJob(const FitOptions& options);

}  // namespace workbench
