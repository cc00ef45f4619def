// Series that stand on each other.

#pragma once

#include <cstddef>
#include <vector>

#include "workbench/charts/chart_data.h"

namespace workbench {

// Between which values each point of a series is drawn; NaN where its value is missing.
struct Edges {
  std::vector<double> low;
  std::vector<double> high;
};

// The edges of the series in their order, the first nearest to zero: at each place positive values stand on the
// positive ones before, negative values hang below the negative ones.
std::vector<Edges> stackSeries(const std::vector<const ChartSeries*>& series);

}  // namespace workbench
