// The files that the options of a run name for its output.

#pragma once

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"
#include "workbench/edge/session.h"

namespace workbench {

// Throws UsageError when an output would overwrite what the run reads, or another output; adds the outputs to the
// session's taken files, so that no saved file overwrites them.
void claimOutputFiles(const OutputOptions& options, CallInput& input);

// The options with what the job names beside them.
OutputOptions withOutputsOf(const Job& job, OutputOptions options);

}  // namespace workbench
