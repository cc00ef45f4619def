#include "workbench/charts/stacking.h"

#include <cmath>
#include <limits>
#include <map>

namespace workbench {

namespace {

struct Reached {
  double above = 0;
  double below = 0;
};

}  // namespace

std::vector<Edges> stackSeries(const std::vector<const ChartSeries*>& series) {
  std::map<std::size_t, Reached> reached;
  std::vector<Edges> stacked;
  for (const ChartSeries* one : series) {
    Edges& edges = stacked.emplace_back();
    for (std::size_t i = 0; i < one->y.size(); ++i) {
      const double value = one->y[i];
      double& end = value < 0 ? reached[one->x[i]].below : reached[one->x[i]].above;
      const double before = std::isnan(value) ? std::numeric_limits<double>::quiet_NaN() : end;
      if (!std::isnan(value)) end += value;
      edges.low.push_back(std::min(before, before + value));
      edges.high.push_back(std::max(before, before + value));
    }
  }
  return stacked;
}

}  // namespace workbench
