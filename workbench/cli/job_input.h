// What a job's commands are given: data, dates, settings.

#pragma once

#include <cstddef>
#include <string>

#include "workbench/cli/job.h"
#include "workbench/cli/options.h"
#include "workbench/edge/session.h"

namespace workbench {

struct JobInput {
  CallInput call;
  std::size_t variables = 0;  // read, before date variables were added
  std::size_t rows = 0;
  std::string fingerprint;  // of the values read; only for a run that is recorded
};

// Reads the data and applies the job's settings to them. Throws UsageError, DataError, and OutputError for an output
// file that would overwrite another file of the run.
JobInput prepareInput(const Job& job, const OutputOptions& options);

}  // namespace workbench
