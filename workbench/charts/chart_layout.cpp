#include "workbench/charts/chart_layout.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "workbench/charts/continuation.h"
#include "workbench/charts/overlap.h"
#include "workbench/charts/stacking.h"

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

constexpr std::size_t kPaletteColors = 10;

const ChartElement& elementOf(const Chart& chart, std::size_t series) {
  return chart.spec.elements[chart.data.series[series].element];
}

void stack(const Chart& chart, ChartLayout& layout) {
  for (std::size_t element = 0; element < chart.spec.elements.size(); ++element) {
    if (!chart.spec.elements[element].stacked) continue;
    std::vector<std::size_t> members;
    std::vector<const ChartSeries*> series;
    for (std::size_t i = 0; i < chart.data.series.size(); ++i) {
      if (chart.data.series[i].element != element) continue;
      members.push_back(i);
      series.push_back(&chart.data.series[i]);
    }
    const std::vector<Edges> edges = stackSeries(series);
    for (std::size_t k = 0; k < members.size(); ++k) {
      layout.series[members[k]].low = edges[k].low;
      layout.series[members[k]].high = edges[k].high;
    }
  }
}

// Series of one name have one colour, in whatever element.
void colour(const Chart& chart, ChartLayout& layout) {
  std::map<std::string, std::size_t> places;
  std::map<std::string, std::size_t> lines;
  for (std::size_t i = 0; i < layout.series.size(); ++i) {
    const ChartSeries& series = chart.data.series[i];
    const std::size_t place = places.try_emplace(series.name, places.size()).first->second;
    SeriesLayout& look = layout.series[i];
    look.color = series.color.empty() ? std::to_string(place % kPaletteColors + 1) : series.color;
    if (elementOf(chart, i).kind == Kind::line) look.dash = lines[look.color]++;
  }
}

double meanWidth(const ChartSeries& band) {
  double sum = 0;
  std::size_t count = 0;
  for (std::size_t i = 0; i < band.upper.size(); ++i) {
    const double width = band.upper[i] - band.y[i];
    if (std::isnan(width)) continue;
    sum += width;
    ++count;
  }
  return count > 0 ? sum / static_cast<double>(count) : 0;
}

void nestBands(const Chart& chart, ChartLayout& layout) {
  const auto& series = chart.data.series;
  for (std::size_t i = 0; i < series.size(); ++i) {
    for (std::size_t other = 0; other < series.size(); ++other) {
      const bool bands = !series[i].upper.empty() && !series[other].upper.empty();
      layout.series[i].depth += std::size_t{bands && meanWidth(series[other]) > meanWidth(series[i])};
    }
  }
}

// Among many lines a wide one would help nobody.
void uncover(const Chart& chart, ChartLayout& layout) {
  constexpr std::size_t kMostLines = 4;
  std::vector<std::size_t> lines;
  for (std::size_t i = 0; i < layout.series.size(); ++i)
    if (elementOf(chart, i).kind == Kind::line) lines.push_back(i);
  if (lines.size() > kMostLines) return;
  for (std::size_t k = 0; k < lines.size(); ++k) {
    layout.series[lines[k]].under =
        std::any_of(lines.begin() + static_cast<std::ptrdiff_t>(k) + 1, lines.end(),
                    [&](auto i) { return nearlyCoincide(chart.data.series[lines[k]], chart.data.series[i]); });
  }
}

void joinSeries(const Chart& chart, ChartLayout& layout) {
  const auto continued = continuedSeries(chart.spec, chart.data);
  for (std::size_t i = 0; i < continued.size(); ++i) layout.series[i].continues = continued[i];
  const std::size_t count = chart.data.categories.size();
  layout.firstShown =
      chart.spec.window ? count - std::min(count, *chart.spec.window) : firstShown(chart.data, continued);
}

}  // namespace

ChartLayout layOutChart(const Chart& chart) {
  ChartLayout layout;
  layout.series.resize(chart.data.series.size());
  stack(chart, layout);
  colour(chart, layout);
  nestBands(chart, layout);
  if (!chart.spec.numericX) {
    uncover(chart, layout);
    joinSeries(chart, layout);
  }
  return layout;
}

std::optional<ChartSpec::Range> joined(const std::optional<ChartSpec::Range>& a,
                                       const std::optional<ChartSpec::Range>& b) {
  if (!a || !b) return a ? a : b;
  return ChartSpec::Range{std::min(a->min, b->min), std::max(a->max, b->max)};
}

std::optional<ChartSpec::Range> valueExtent(const Chart& chart, const ChartLayout& layout, std::size_t from) {
  std::optional<ChartSpec::Range> extent;
  for (std::size_t i = 0; i < layout.series.size(); ++i) {
    const ChartSeries& series = chart.data.series[i];
    const SeriesLayout& look = layout.series[i];
    for (const std::vector<double>* values : {look.low.empty() ? &series.y : &look.low, &look.high, &series.upper}) {
      for (std::size_t k = 0; k < values->size(); ++k) {
        const bool shown = series.x.empty() || series.x[k] >= from;
        const double value = (*values)[k];
        if (shown && !std::isnan(value)) extent = joined(extent, ChartSpec::Range{value, value});
      }
    }
  }
  return extent;
}

}  // namespace workbench
