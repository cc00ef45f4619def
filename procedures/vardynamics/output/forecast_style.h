// How forecasts are written.

#pragma once

#include <cstddef>

#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

// Decimals of a series' forecasts: its smallest standard error shows four digits; without standard errors, the standard
// error of its regression.
int forecastDecimals(const ReportContext& context, std::size_t series);

// Of a series in levels: the width of its limits shows four digits; without limits, the first step.
int levelDecimals(const ReportContext& context, const SeriesLevels& levels);

}  // namespace vardynamics
