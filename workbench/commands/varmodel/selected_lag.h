// What the trace of a VARMODEL run tells of its lags and warnings.

#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "workbench/commands/common/command.h"

namespace workbench::varmodel {

inline constexpr std::string_view forecastsWithoutExogenous =
    "The exogenous terms are not part of the forecasts: they are left out, as if every exogenous variable were 0 in "
    "the "
    "forecast periods.";

// The warnings of the trace in their order, without "Warning: " and "Class::method - ".
std::vector<std::string> tracedWarnings(const FinishedRun& run);

// The lag that the criteria chose; MAXLAG where the trace names none below it.
int selectedLag(const FinishedRun& run);

// Which criteria chose that lag, and from which.
std::string whyThisLag(const FinishedRun& run);

}  // namespace workbench::varmodel
