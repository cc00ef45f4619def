// Fewer points that draw the same picture on a character grid.

#pragma once

#include <cstddef>
#include <vector>

namespace workbench {

struct PlotPoint {
  std::size_t place = 0;  // on the category axis
  double value = 0;       // NaN: the line has a gap here

  bool operator==(const PlotPoint&) const = default;
};

// The points of one series: `places` ascending within 0..categories-1, one value (NaN: missing) each. Where more than
// two categories share one of `columns` columns, a column keeps its lowest and its highest value, in their order; a
// column in which every value is missing keeps one gap. So at most two points a column, and no extreme is lost.
std::vector<PlotPoint> thinSeries(const std::vector<std::size_t>& places, const std::vector<double>& values,
                                  std::size_t categories, std::size_t columns);

}  // namespace workbench
