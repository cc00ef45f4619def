#include "workbench/charts/continuation.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

// Places of a series' first and last value.
struct ValueSpan {
  std::size_t first = 0;
  std::size_t last = 0;
};

std::optional<ValueSpan> valueSpan(const ChartSeries& series) {
  std::optional<ValueSpan> span;
  for (std::size_t i = 0; i < series.x.size(); ++i) {
    if (std::isnan(series.y[i])) continue;
    if (!span) span = ValueSpan{series.x[i], series.x[i]};
    span->first = std::min(span->first, series.x[i]);
    span->last = std::max(span->last, series.x[i]);
  }
  return span;
}

}  // namespace

std::optional<LastPoint> lastPoint(const ChartSeries& series) {
  std::optional<LastPoint> last;
  for (std::size_t i = 0; i < series.x.size(); ++i) {
    if (!std::isnan(series.y[i]) && (!last || series.x[i] >= last->place)) last = LastPoint{series.x[i], series.y[i]};
  }
  return last;
}

std::vector<std::optional<std::size_t>> continuedSeries(const ChartSpec& spec, const ChartData& data) {
  const auto kindOf = [&](std::size_t i) { return spec.elements[data.series[i].element].kind; };
  std::map<std::size_t, std::size_t> firstEndingAt;
  std::vector<std::optional<ValueSpan>> spans;
  for (std::size_t i = 0; i < data.series.size(); ++i) {
    spans.push_back(valueSpan(data.series[i]));
    if (spans[i] && kindOf(i) == Kind::line) firstEndingAt.try_emplace(spans[i]->last, i);
  }
  std::vector<std::optional<std::size_t>> continued(data.series.size());
  for (std::size_t i = 0; i < data.series.size(); ++i) {
    if (!spans[i] || spans[i]->first == 0 || (kindOf(i) != Kind::line && kindOf(i) != Kind::band)) continue;
    const auto found = firstEndingAt.find(spans[i]->first - 1);
    if (found != firstEndingAt.end()) continued[i] = found->second;
  }
  return continued;
}

std::size_t firstShown(const ChartData& data, const std::vector<std::optional<std::size_t>>& continued) {
  constexpr std::size_t kFewest = 30;
  const std::size_t count = data.categories.size();
  std::size_t begin = count;
  for (std::size_t i = 0; i < data.series.size(); ++i) {
    if (continued[i]) begin = std::min(begin, valueSpan(data.series[i])->first);
  }
  const std::size_t shown = std::max(6 * (count - begin), kFewest);
  return begin < count && 3 * shown < 2 * count ? count - shown : 0;
}

}  // namespace workbench
