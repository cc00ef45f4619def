// Notes on values of a job's data that hardly are what they seem.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/cli/job.h"
#include "workbench/edge/session.h"

namespace workbench {

// The options, or the lines of a job file's [data], that say what these settings say.
Notice remedyText(const Job& job, const std::vector<WrittenSetting>& settings);

// Text columns that hold numbers, names given twice, and suspicious values of these columns (indexes), each with its
// rows and its remedy. Rows count from 1 as the data are used.
std::vector<Notice> dataNotes(const Job& job, const CallInput& input, const std::vector<int>& columns);

}  // namespace workbench
