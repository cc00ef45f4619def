#include "workbench/plots/plot_frame.h"

#include <algorithm>
#include <cmath>

namespace workbench {

namespace {

using Kind = ChartElement::Kind;
using Range = ChartSpec::Range;

void extend(std::optional<Range>& range, double low, double high) {
  range = joined(range, Range{low, high});
}

Range numberRange(const Chart& chart) {
  if (chart.spec.xRange) return *chart.spec.xRange;
  std::optional<Range> range;
  for (const ChartSeries& series : chart.data.series) {
    for (const double x : series.number)
      if (!std::isnan(x)) extend(range, x, x);
  }
  for (const auto& line : chart.spec.lines)
    if (line.dimension == 1) extend(range, line.at, line.at);
  for (const auto& circle : chart.spec.circles) extend(range, circle.x - circle.radius, circle.x + circle.radius);
  return range ? *range : Range{0, 1};
}

Range valueRange(const Chart& chart, const ChartLayout& layout) {
  if (chart.spec.yRange) return *chart.spec.yRange;
  auto range = joined(valueExtent(chart, layout, layout.firstShown), chart.besides);
  for (const auto& circle : chart.spec.circles) extend(range, circle.y - circle.radius, circle.y + circle.radius);
  for (const auto& line : chart.spec.lines)
    if (line.dimension == 2) extend(range, line.at, line.at);
  const auto& elements = chart.spec.elements;
  const bool zero = std::ranges::any_of(
      elements, [](const auto& one) { return one.kind == Kind::interval || one.kind == Kind::area; });
  if (zero) extend(range, 0, 0);
  return range ? *range : Range{0, 1};
}

Range widened(const Range& range, double span) {
  const double middle = (range.min + range.max) / 2;
  return {middle - span / 2, middle + span / 2};
}

}  // namespace

GridFrame plotFrame(const Chart& chart, const ChartLayout& layout, int columns, int rows) {
  constexpr double kMargin = 1.08;  // around points, which are wider than their place
  Range x{static_cast<double>(layout.firstShown) - 0.5, static_cast<double>(chart.data.categories.size()) - 0.5};
  if (chart.spec.numericX) x = numberRange(chart);
  Range y = valueRange(chart, layout);
  if (chart.spec.numericX) {
    const double across = x.max - x.min;
    const double up = y.max - y.min;
    const double longer = std::max(across, up);
    x = widened(x, kMargin * (chart.spec.equalAxes ? longer : across));
    y = widened(y, kMargin * (chart.spec.equalAxes ? longer : up));
  }
  return {x.min,
          x.max,
          y.min,
          y.max,
          static_cast<std::size_t>(std::max(columns, 1)),
          static_cast<std::size_t>(std::max(rows, 1))};
}

}  // namespace workbench
