#include "workbench/plots/thinning.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace workbench {

namespace {

// The points [begin, end) fall into one column.
void keepExtremes(const std::vector<std::size_t>& places, const std::vector<double>& values, std::size_t begin,
                  std::size_t end, std::vector<PlotPoint>& kept) {
  std::optional<std::size_t> lowest;
  std::optional<std::size_t> highest;
  for (std::size_t i = begin; i < end; ++i) {
    if (std::isnan(values[i])) continue;
    if (!lowest || values[i] < values[*lowest]) lowest = i;
    if (!highest || values[i] > values[*highest]) highest = i;
  }
  const std::size_t first = lowest ? std::min(*lowest, *highest) : begin;
  const std::size_t last = lowest ? std::max(*lowest, *highest) : begin;
  kept.push_back({places[first], values[first]});
  if (last != first) kept.push_back({places[last], values[last]});
}

}  // namespace

std::vector<PlotPoint> thinSeries(const std::vector<std::size_t>& places, const std::vector<double>& values,
                                  std::size_t categories, std::size_t columns) {
  std::vector<PlotPoint> kept;
  const bool thin = categories > 2 * columns;
  const auto columnOf = [&](std::size_t i) { return thin ? places[i] * columns / categories : i; };
  for (std::size_t begin = 0; begin < places.size();) {
    std::size_t end = begin + 1;
    while (end < places.size() && columnOf(end) == columnOf(begin)) ++end;
    keepExtremes(places, values, begin, end, kept);
    begin = end;
  }
  return kept;
}

}  // namespace workbench
