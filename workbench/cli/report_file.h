// The HTML report of a run.

#pragma once

#include <string>
#include <vector>

#include "workbench/commands/common/run_messages.h"

namespace workbench {

// The whole page: command, run facts, messages, every table and chart. `seconds` is the time the run took.
std::string reportPage(const FinishedRun& run, const std::vector<RunMessage>& messages, double seconds);

}  // namespace workbench
