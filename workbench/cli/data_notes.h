// Notes on values of a job's data that hardly are what they seem.

#pragma once

#include <string>
#include <vector>

#include "workbench/cli/job.h"
#include "workbench/commands/common/command.h"

namespace workbench {

// The options, or the lines of a job file's [data], that say what these settings say.
std::string remedyText(const Job& job, const std::vector<WrittenSetting>& settings);

// Text columns that hold numbers, names given twice, and suspicious values of the run's variables, each with its rows
// and its remedy. Rows count from 1 as the data are used.
std::vector<std::string> dataNotes(const Job& job, const FinishedRun& run);

}  // namespace workbench
