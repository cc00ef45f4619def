// The record of a run as JSON; docs/varmodel-run.schema.json describes it.

#pragma once

#include <string>
#include <vector>

#include "workbench/cli/job_runs.h"
#include "workbench/cli/run_description.h"

namespace workbench {

// One line. Each document stands in it as its procedure handed it over.
std::string runRecord(const RunDescription& description, const std::vector<ToldRun>& runs);

}  // namespace workbench
