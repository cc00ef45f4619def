// The job of a composed command.

#pragma once

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"

namespace workbench {

// Composes the command, prints it unless the run is quiet, and collects the settings. Throws UsageError for a --start
// component that is not UNIT=N.
Job makeComposedJob(const ComposeOptions& options);

}  // namespace workbench
