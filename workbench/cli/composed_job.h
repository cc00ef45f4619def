// The job of a composed command.

#pragma once

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"

namespace workbench {

// Collects the settings, composes the command and prints it unless the run is quiet. Where forecasts run through a
// period, how many these are is known only with the data: the command is then still empty. Throws UsageError for
// options that cannot be meant.
Job makeComposedJob(const ComposeOptions& options);

// Composes the command, now that the number of periods is known, and prints it.
void composeCommand(Job& job, const OutputOptions& options);

}  // namespace workbench
