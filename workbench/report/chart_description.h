// A chart in words, for those who cannot see it.

#pragma once

#include <string>

#include "workbench/render/number_format.h"
#include "workbench/report/chart_data.h"
#include "workbench/report/vizl.h"

namespace workbench {

// Kind, title, span of the categories, and of each series (the first few of many) its first and last value and its
// extremes with where they are. Visible text without line breaks.
std::string describeChart(const ChartSpec& spec, const ChartData& data, const Locale& locale = {});

}  // namespace workbench
