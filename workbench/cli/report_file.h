// The HTML report of a run.

#pragma once

#include <string>
#include <vector>

#include "workbench/cli/job_runs.h"
#include "workbench/cli/run_description.h"

namespace workbench {

// The whole page: run facts, messages, and every command with its tables and charts.
std::string reportPage(const RunDescription& description, const std::vector<ToldRun>& runs);

}  // namespace workbench
