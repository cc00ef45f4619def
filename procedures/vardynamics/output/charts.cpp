#include "procedures/vardynamics/output/charts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {
namespace {

constexpr std::size_t kShownRows = 400;  // of a long history
constexpr std::size_t kRowsPerPeriod = 6;

// The points of a fan: history, forecast and, with a condition, the unconditional forecast.
class Fan {
 public:
  Fan(const ReportContext& context, std::size_t series)
      : context_(context),
        series_(series),
        rows_(context.observations.sample.rows()),
        first_(rows_ - std::min(rows_, std::max(kShownRows, kRowsPerPeriod * context.observations.horizon))) {}

  DocumentChart chart() {
    const Texts& texts = context_.texts;
    const std::string& name = context_.names()[series_];
    DocumentChart chart{.id = "Forecast Chart - " + name, .title = texts.localize("Forecast") + " - " + name};
    chart.statements = {"SCALE: cat(dim(1), sort.data())", colors(), axisGuide(2, name),
                        axisGuide(1, context_.periodLabel())};
    addPoints();
    chart.texts = {{"date", dates_}, {"name", names_}};
    chart.numbers = {{"value", values_}};
    if (context_.analysis.forecast->hasLimits()) addBands(chart);
    chart.statements.emplace_back("ELEMENT: line(position(date*value), color(name))");
    return chart;
  }

 private:
  std::string colors() const {
    const Texts& texts = context_.texts;
    return "SCALE: cat(aesthetic(aesthetic.color), map((\"" + texts.localize("Observed") + "\", color.black), (\"" +
           texts.localize("Forecast") + "\", color.blue), (\"" + texts.localize("Unconditional") + "\", color.grey)))";
  }

  void addPoint(std::size_t period, double value, const std::string& name) {
    dates_.push_back(context_.observations.label(period));
    values_.push_back(value);
    names_.push_back(name);
  }

  void addPath(const engine::Matrix& path, const std::string& name) {
    for (std::size_t h = 0; h < path.rows; ++h) addPoint(rows_ + h, path(h, series_), name);
  }

  void addPoints() {
    const Texts& texts = context_.texts;
    const std::vector<double>& observed = context_.observations.sample.endogenous[series_];
    for (std::size_t t = first_; t < rows_; ++t) addPoint(t, observed[t], texts.localize("Observed"));
    addPath(context_.analysis.forecast->values, texts.localize("Forecast"));
    const auto& condition = context_.analysis.forecast->condition;
    if (condition) addPath(condition->unconditional, texts.localize("Unconditional"));
  }

  std::vector<double> besideForecast(const engine::Matrix& limit) const {
    std::vector<double> column(values_.size(), kNoValue);
    for (std::size_t h = 0; h < limit.rows; ++h) column[rows_ - first_ + h] = limit(h, series_);
    return column;
  }

  void addBands(DocumentChart& chart) const {
    int number = 0;
    for (const double level : forecastLevels(context_.settings)) {
      const engine::ForecastLimits limits = context_.analysis.forecast->limits(level);
      const std::string low = "low" + std::to_string(++number);
      const std::string high = "high" + std::to_string(number);
      chart.numbers.emplace_back(low, besideForecast(limits.lower));
      chart.numbers.emplace_back(high, besideForecast(limits.upper));
      chart.statements.push_back(bandElement("date", low, high, procedures::confidenceLevelText(level)));
    }
  }

  const ReportContext& context_;
  std::size_t series_;
  std::size_t rows_;   // of the sample
  std::size_t first_;  // row that is shown
  std::vector<std::string> dates_;
  std::vector<std::string> names_;
  std::vector<double> values_;
};

std::string rootText(const Texts& texts, const engine::Root& root) {
  constexpr int kPeriodDecimals = 2;
  const std::string modulus = texts.number(modulusText(root.modulus));
  if (!std::isfinite(root.period)) return texts.localize("Modulus ^1", {modulus});
  return texts.localize("Modulus ^1, period ^2", {modulus, texts.number(fixedText(root.period, kPeriodDecimals))});
}

}  // namespace

DocumentChart forecastChart(const ReportContext& context, std::size_t series) {
  return Fan(context, series).chart();
}

DocumentChart rootsChart(const ReportContext& context) {
  const Texts& texts = context.texts;
  const auto& roots = context.analysis.roots;
  DocumentChart chart{.id = "Roots Chart", .title = texts.localize("Roots")};
  std::vector<std::string> said;
  for (const engine::Root& root : roots) said.push_back(rootText(texts, root));
  chart.texts = {{"said", said}};
  chart.numbers = {{"re", columnOf(roots, [](const auto& root) { return root.real; })},
                   {"im", columnOf(roots, [](const auto& root) { return root.imaginary; })}};
  chart.statements = {
      "SCALE: equal(dim(1), dim(2))",
      "GUIDE: circle(at(0, 0), radius(1))",
      "GUIDE: line(dim(1), at(0))",
      "GUIDE: line(dim(2), at(0))",
      axisGuide(2, texts.localize("Imaginary")),
      axisGuide(1, texts.localize("Real")),
      "ELEMENT: point(position(re*im), color(color.blue), text(said), label(\"" + texts.localize("Roots") + "\"))"};
  return chart;
}

}  // namespace vardynamics
