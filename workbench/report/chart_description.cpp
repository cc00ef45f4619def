#include "workbench/report/chart_description.h"

#include <fmt/format.h>

#include <cmath>

#include "workbench/render/display_text.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

constexpr std::size_t kMostSeries = 6;

std::string kindName(ChartSpec::Element element) {
  switch (element) {
    case ChartSpec::Element::line:
      return tr("Line chart");
    case ChartSpec::Element::area:
      return tr("Area chart");
    case ChartSpec::Element::interval:
      return tr("Bar chart");
    default:
      return tr("Empty chart");
  }
}

// Places of the first, last, lowest and highest value that is not missing.
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

std::string sixDigits(double value, const Locale& locale) {
  std::string text = fmt::format("{:.6g}", value);
  if (const std::size_t point = text.find('.'); point != std::string::npos)
    text.replace(point, 1, locale.decimalSeparator);
  return text;
}

std::string describeSeries(const ChartSeries& series, const std::vector<std::string>& categories,
                           const Locale& locale) {
  const Landmarks at = landmarks(series.y);
  const std::string name = series.name.empty() ? tr("Values") : series.name;
  if (at.count == 0) return tr("^1: no values.", name);
  const auto point = [&](std::size_t i) {
    return tr("^1 at ^2", sixDigits(series.y[i], locale), categories[series.x[i]]);
  };
  if (at.count == 1) return fmt::format("{}: {}.", name, point(at.first));
  return tr("^1: ^2 values from ^3 to ^4; lowest ^5, highest ^6.", name, at.count, point(at.first), point(at.last),
            point(at.lowest), point(at.highest));
}

}  // namespace

std::string describeChart(const ChartSpec& spec, const ChartData& data, const Locale& locale) {
  std::string text = fmt::format("{}: {}.", kindName(spec.element), visibleText(spec.title));
  if (!data.problem.empty()) return text + " " + data.problem;
  text += ' ' +
          tr("^1 by ^2, ^3 to ^4", visibleText(spec.yLabel), visibleText(spec.xLabel), data.categories.front(),
             data.categories.back()) +
          '.';
  for (std::size_t i = 0; i < data.series.size() && i < kMostSeries; ++i) {
    text += ' ' + describeSeries(data.series[i], data.categories, locale);
  }
  if (data.series.size() > kMostSeries) text += ' ' + tr("And ^1 more series.", data.series.size() - kMostSeries);
  return text;
}

}  // namespace workbench
