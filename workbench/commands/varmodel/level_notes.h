// VARMODEL's forecasts of transformed series in the unit of the data.

#pragma once

#include <string>
#include <vector>

#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

// One note for each transformed series among the rows of the table of forecasts. None where values that a forecast goes
// on from are missing.
std::vector<std::string> levelNotes(const FinishedRun& run, const rapidjson::Value& table);

}  // namespace workbench::varmodel
