#include "workbench/charts/thinning.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace workbench {

namespace {

// The points [begin, end) fall into one column.
void keepExtremes(const std::vector<double>& values, std::size_t begin, std::size_t end,
                  std::vector<std::size_t>& kept) {
  std::optional<std::size_t> lowest;
  std::optional<std::size_t> highest;
  for (std::size_t i = begin; i < end; ++i) {
    if (std::isnan(values[i])) continue;
    if (!lowest || values[i] < values[*lowest]) lowest = i;
    if (!highest || values[i] > values[*highest]) highest = i;
  }
  const std::size_t first = lowest ? std::min(*lowest, *highest) : begin;
  const std::size_t last = lowest ? std::max(*lowest, *highest) : begin;
  kept.push_back(first);
  if (last != first) kept.push_back(last);
}

}  // namespace

std::vector<std::size_t> drawnPoints(const std::vector<std::size_t>& places, const std::vector<double>& values,
                                     const PlaceRange& range, std::size_t columns) {
  std::vector<std::size_t> kept;
  const bool thin = range.count > 2 * columns;
  const auto inside = [&](std::size_t i) { return places[i] - range.first < range.count; };  // below `first` it wraps
  const auto columnOf = [&](std::size_t i) { return thin ? (places[i] - range.first) * columns / range.count : i; };
  for (std::size_t begin = 0; begin < places.size();) {
    std::size_t end = begin + 1;
    while (end < places.size() && inside(end) && columnOf(end) == columnOf(begin)) ++end;
    if (inside(begin)) keepExtremes(values, begin, end, kept);
    begin = end;
  }
  return kept;
}

}  // namespace workbench
