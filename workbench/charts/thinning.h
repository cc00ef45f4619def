// Fewer points that draw the same picture.

#pragma once

#include <cstddef>
#include <vector>

namespace workbench {

// Neighbouring places of an axis.
struct PlaceRange {
  std::size_t first = 0;
  std::size_t count = 0;
};

// Indexes of the points of one series that are worth drawing on `columns` columns: of those in the range, `places`
// ascending, one value (NaN: missing) each. Where more than two places share a column, a column keeps its lowest and
// its highest value, in their order; a column in which every value is missing keeps one gap. So at most two points a
// column, and no extreme is lost.
std::vector<std::size_t> drawnPoints(const std::vector<std::size_t>& places, const std::vector<double>& values,
                                     const PlaceRange& range, std::size_t columns);

}  // namespace workbench
