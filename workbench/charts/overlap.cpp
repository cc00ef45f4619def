#include "workbench/charts/overlap.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

namespace workbench {

bool nearlyCoincide(const ChartSeries& a, const ChartSeries& b) {
  constexpr double kNear = 0.05;
  std::unordered_map<std::size_t, double> values;
  for (std::size_t i = 0; i < a.x.size(); ++i)
    if (!std::isnan(a.y[i])) values[a.x[i]] = a.y[i];
  double lowest = std::numeric_limits<double>::infinity();
  double highest = -lowest;
  double distance = 0;
  std::size_t shared = 0;
  for (std::size_t i = 0; i < b.x.size(); ++i) {
    const auto found = values.find(b.x[i]);
    if (found == values.end() || std::isnan(b.y[i])) continue;
    ++shared;
    distance += std::abs(b.y[i] - found->second);
    lowest = std::min({lowest, b.y[i], found->second});
    highest = std::max({highest, b.y[i], found->second});
  }
  const std::size_t most = std::max(values.size(), b.x.size());
  return shared > 1 && 2 * shared > most && distance / static_cast<double>(shared) < kNear * (highest - lowest);
}

}  // namespace workbench
