#include "workbench/render/chart_description.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "workbench/base/visible_text.h"

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

constexpr std::size_t kMostSeries = 6;
constexpr std::size_t kMostPoints = 12;

std::string kindName(const ChartSpec& spec, const Language& language) {
  if (spec.elements.empty()) return language.tr("Empty chart");
  const auto main = std::ranges::find_if(spec.elements, [](const auto& one) { return one.kind != Kind::band; });
  const ChartElement& element = main == spec.elements.end() ? spec.elements.front() : *main;
  switch (element.kind) {
    case Kind::line:
      return language.tr("Line chart");
    case Kind::area:
      return element.stacked ? language.tr("Stacked areas") : language.tr("Area chart");
    case Kind::interval:
      return element.stacked ? language.tr("Stacked bars") : language.tr("Bar chart");
    case Kind::point:
      return language.tr("Points");
    case Kind::band:
      break;
  }
  return language.tr("Bands");
}

// Indexes of the first, last, lowest and highest value that is not missing.
struct Landmarks {
  std::size_t first = 0;
  std::size_t last = 0;
  std::size_t lowest = 0;
  std::size_t highest = 0;
  std::size_t count = 0;
};

Landmarks landmarks(const std::vector<double>& values) {
  Landmarks found;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (std::isnan(values[i])) continue;
    if (found.count++ == 0) found = {i, i, i, i, 1};
    found.last = i;
    if (values[i] < values[found.lowest]) found.lowest = i;
    if (values[i] > values[found.highest]) found.highest = i;
  }
  return found;
}

class Describer {
 public:
  Describer(const Chart& chart, const Language& language) : spec_(chart.spec), data_(chart.data), language_(language) {}

  std::string axes() const {
    if (spec_.numericX) return axesText(spec_, language_) + '.';
    return language_.tr("^1 by ^2, ^3 to ^4", visibleText(spec_.yLabel), visibleText(spec_.xLabel),
                        data_.categories.front(), data_.categories.back()) +
           '.';
  }

  std::string series(const ChartSeries& series) const {
    const Landmarks at = landmarks(series.y);
    const std::string name = series.name.empty() ? language_.tr("Values") : series.name;
    if (at.count == 0) return language_.tr("^1: no values.", name);
    if (spec_.numericX) return fmt::format("{}: {}.", name, points(series));
    if (!series.upper.empty()) return band(series, name, at);
    const auto point = [&](std::size_t i) { return language_.tr("^1 at ^2", number(series.y[i]), place(series, i)); };
    if (at.count == 1) return fmt::format("{}: {}.", name, point(at.first));
    return language_.tr("^1: ^2 values from ^3 to ^4; lowest ^5, highest ^6.", name, at.count, point(at.first),
                        point(at.last), point(at.lowest), point(at.highest));
  }

  // Lines and circles that stand for no data.
  std::string marks() const {
    std::string text;
    for (const auto& line : spec_.lines)
      text += ' ' + (line.dimension == 1 ? language_.tr("A line stands at ^1.", number(line.at))
                                         : language_.tr("A line lies at ^1.", number(line.at)));
    for (const auto& circle : spec_.circles)
      text += ' ' + language_.tr("A circle of radius ^1 lies around ^2 and ^3.", number(circle.radius),
                                 number(circle.x), number(circle.y));
    return text;
  }

 private:
  std::string number(double value) const {
    std::string text = fmt::format("{:.6g}", value);
    if (const std::size_t point = text.find('.'); point != std::string::npos)
      text.replace(point, 1, language_.decimalSeparator());
    return text;
  }

  const std::string& place(const ChartSeries& series, std::size_t i) const { return data_.categories[series.x[i]]; }

  std::string band(const ChartSeries& series, const std::string& name, const Landmarks& at) const {
    const auto edges = [&](std::size_t i) {
      return language_.tr("^1 to ^2 at ^3", number(series.y[i]), number(series.upper[i]), place(series, i));
    };
    return at.first == at.last ? fmt::format("{}: {}.", name, edges(at.first))
                               : language_.tr("^1: band from ^2 to ^3.", name, edges(at.first), edges(at.last));
  }

  std::string points(const ChartSeries& series) const {
    std::vector<std::string> said;
    for (std::size_t i = 0; i < series.y.size() && i < kMostPoints; ++i)
      said.push_back(series.texts.empty() ? fmt::format("{}; {}", number(series.number[i]), number(series.y[i]))
                                          : series.texts[i]);
    if (series.y.size() > kMostPoints) said.push_back(language_.tr("and ^1 more", series.y.size() - kMostPoints));
    return fmt::format("{}", fmt::join(said, " | "));
  }

  const ChartSpec& spec_;
  const ChartData& data_;
  const Language& language_;
};

std::string describePanel(const Chart& chart, const Language& language) {
  return language.tr("Panel of ^1 by ^2 charts, rows: ^3; columns: ^4.", chart.panelRows.size(),
                     chart.panelColumns.size(), fmt::format("{}", fmt::join(chart.panelRows, ", ")),
                     fmt::format("{}", fmt::join(chart.panelColumns, ", ")));
}

}  // namespace

std::string problemText(const ChartProblem& problem, const Language& language) {
  switch (problem.kind) {
    case ChartProblem::Kind::none:
      break;
    case ChartProblem::Kind::noElement:
      return language.tr("The chart's specification names nothing to draw.");
    case ChartProblem::Kind::noColumn:
      return language.tr("The chart has no data column '^1'.", visibleText(problem.column));
    case ChartProblem::Kind::noPoints:
      return language.tr("The chart has no points.");
  }
  return {};
}

std::string axesText(const ChartSpec& spec, const Language& language) {
  return language.tr("^1 by ^2", visibleText(spec.yLabel), visibleText(spec.xLabel));
}

std::string describeChart(const Chart& chart, const Language& language) {
  const ChartData& data = chart.data;
  std::string text = fmt::format("{}: {}.", kindName(chart.spec, language), visibleText(chart.spec.title));
  if (data.problem) return text + " " + problemText(data.problem, language);
  const Describer describer(chart, language);
  text += ' ' + describer.axes();
  if (!chart.cells.empty()) return text + ' ' + describePanel(chart, language);
  for (std::size_t i = 0; i < data.series.size() && i < kMostSeries; ++i)
    text += ' ' + describer.series(data.series[i]);
  if (data.series.size() > kMostSeries)
    text += ' ' + language.tr("And ^1 more series.", data.series.size() - kMostSeries);
  return text + describer.marks();
}

}  // namespace workbench
