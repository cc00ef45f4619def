// The tables and charts of a run as files of their own.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/base/taken_file.h"
#include "workbench/cli/job_runs.h"
#include "workbench/cli/options.h"

namespace workbench {

// What was written, and why something was not.
struct Exports {
  std::vector<std::string> tables;  // paths
  std::vector<std::string> charts;
  std::string problem;  // why charts are not drawn, with the remedy
  Notice failure;       // what an OutputError tells; empty where all went well
};

// Writes what the options ask for, all of a kind or nothing; never over a taken file.
Exports writeExports(const std::vector<ToldRun>& runs, const OutputOptions& options, std::vector<TakenFile> taken);

}  // namespace workbench
