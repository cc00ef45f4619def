// The variables that hold the cases' dates.

#pragma once

#include <vector>

#include "workbench/dates/period.h"
#include "workbench/dates/trends_settings.h"

namespace workbench {

// "YEAR_" .. "SECOND_", "OBS_": the names of date variables that the workbench makes.
std::string dateVariableName(Unit unit);

// Existing columns as date variables, one for each of unitsOf(finest).
std::vector<DateVariable> dateVariablesOf(Unit finest, const std::vector<int>& columns);

// Makes the numeric date variables of a calendar. A column that has such a name already is used as it is; throws
// UsageError, before anything is appended, when it is not numeric or holds other values.
std::vector<DateVariable> makeDateVariables(Dataset& dataset, const CaseCalendar& calendar);

// Appends the string variable DATE_ unless there is a column of that name. Every case's period must be in range.
void makeDateLabels(Dataset& dataset, const CaseCalendar& calendar);

}  // namespace workbench
