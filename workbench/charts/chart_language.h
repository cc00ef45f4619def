// Reading a chart's statements. docs/charts.md describes the language.

#pragma once

#include <set>
#include <string>
#include <vector>

#include "workbench/charts/chart_spec.h"

namespace workbench {

// Labels stand in the lines without any escaping, so that each kind of line is recognised by its known beginning and
// end. In a colour map, where several names follow each other, `seriesNames` (those of the data) decide where a name
// ends. Lines that are not understood change nothing but `notUnderstood`.
ChartSpec parseChartLanguage(const std::vector<std::string>& lines, const std::set<std::string>& seriesNames);

}  // namespace workbench
