// Series that go on where others end, as a forecast goes on where the observed values end.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "workbench/charts/chart_data.h"

namespace workbench {

// Place and value of a series' last value; nothing when it has none.
struct LastPoint {
  std::size_t place = 0;
  double value = 0;
};
std::optional<LastPoint> lastPoint(const ChartSeries& series);

// For each series the one whose last value it is joined to, if any: of a line or band the first line all of whose
// values stand before its own, the last of them at the next place.
std::vector<std::optional<std::size_t>> continuedSeries(const ChartSpec& spec, const ChartData& data);

// The first place of the part that is worth seeing first. A short continuation of a long history would be a blot at the
// end of the axis: the last part, six times as long as the continuation and at least 30 places, is shown where that is
// less than two thirds of all; otherwise everything.
std::size_t firstShown(const ChartData& data, const std::vector<std::optional<std::size_t>>& continued);

}  // namespace workbench
