// What a run was: all that is needed to do it again and to see that it had the same data.

#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "workbench/cli/exports.h"
#include "workbench/cli/job.h"
#include "workbench/cli/job_input.h"
#include "workbench/cli/job_runs.h"
#include "workbench/cli/options.h"

namespace workbench {

using StageSeconds = std::vector<std::pair<std::string, double>>;

// A key of a job file ("dates.start") and its value as it stands there.
using Settings = std::vector<std::pair<std::string, std::string>>;

struct RunDescription {
  std::string program;
  std::string version;
  std::vector<std::string> commandLine;
  std::string source;  // of the data; empty for a query alone
  std::string query;
  std::string fingerprint;
  std::size_t rows = 0;
  std::size_t variables = 0;
  std::string language;
  Settings settings;
  OutputNames outputs;
  std::filesystem::path writtenJob;
  Exports exports;
  StageSeconds seconds;  // only when asked for: no two runs take the same time
};

RunDescription describeRun(const Job& job, const OutputOptions& options, const JobInput& input);

// What one command read.
struct RowDescription {
  std::int64_t read = 0;
  std::int64_t used = 0;
  std::int64_t dropped = 0;
  std::vector<std::pair<std::string, std::int64_t>> missing;  // variables that dropped rows lack, and how often
  std::string first;                                          // date or number of the first and the last row used
  std::string last;
};

// Nothing when the command read no cases.
std::optional<RowDescription> describeRows(const FinishedRun& run);

}  // namespace workbench
