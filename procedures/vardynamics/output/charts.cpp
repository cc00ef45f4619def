#include "procedures/vardynamics/output/charts.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/table_parts.h"

namespace vardynamics {
namespace {

constexpr std::size_t kShownRows = 400;  // of a long history
constexpr std::size_t kRowsPerPeriod = 6;

struct FanLimits {
  double level = 0.0;
  std::vector<double> lower = {};
  std::vector<double> upper = {};
};

// What a fan shows of a series: its sample, its forecast and, with a condition, the unconditional forecast.
struct FanValues {
  std::vector<double> observed = {};
  std::vector<double> forecast = {};
  std::vector<double> unconditional = {};
  std::vector<FanLimits> limits = {};
};

class Fan {
 public:
  Fan(const ReportContext& context, FanValues values)
      : context_(context),
        fan_(std::move(values)),
        rows_(fan_.observed.size()),
        first_(rows_ - std::min(rows_, std::max(kShownRows, kRowsPerPeriod * context.observations.horizon))) {}

  // `chart` has its name and title.
  DocumentChart draw(DocumentChart chart, const std::string& name) {
    chart.statements = {"SCALE: cat(dim(1), sort.data())", colors(), axisGuide(2, name),
                        axisGuide(1, context_.periodLabel())};
    addPoints();
    chart.texts = {{"date", dates_}, {"name", names_}};
    chart.numbers = {{"value", values_}};
    addBands(chart);
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

  void addPath(const std::vector<double>& path, const std::string& name) {
    for (std::size_t h = 0; h < path.size(); ++h) addPoint(rows_ + h, path[h], name);
  }

  void addPoints() {
    const Texts& texts = context_.texts;
    for (std::size_t t = first_; t < rows_; ++t) addPoint(t, fan_.observed[t], texts.localize("Observed"));
    addPath(fan_.forecast, texts.localize("Forecast"));
    addPath(fan_.unconditional, texts.localize("Unconditional"));
  }

  std::vector<double> besideForecast(const std::vector<double>& limit) const {
    std::vector<double> column(values_.size(), kNoValue);
    std::ranges::copy(limit, column.begin() + static_cast<std::ptrdiff_t>(rows_ - first_));
    return column;
  }

  void addBands(DocumentChart& chart) const {
    int number = 0;
    for (const FanLimits& limits : fan_.limits) {
      const std::string low = "low" + std::to_string(++number);
      const std::string high = "high" + std::to_string(number);
      chart.numbers.emplace_back(low, besideForecast(limits.lower));
      chart.numbers.emplace_back(high, besideForecast(limits.upper));
      chart.statements.push_back(bandElement("date", low, high, procedures::confidenceLevelText(limits.level)));
    }
  }

  const ReportContext& context_;
  FanValues fan_;
  std::size_t rows_;   // of the sample
  std::size_t first_;  // row that is shown
  std::vector<std::string> dates_;
  std::vector<std::string> names_;
  std::vector<double> values_;
};

FanValues fanOf(const ReportContext& context, std::size_t series) {
  const Forecast& forecast = *context.analysis.forecast;
  FanValues fan{.observed = context.observations.sample.endogenous[series],
                .forecast = engine::columnOf(forecast.values, series)};
  if (forecast.condition) fan.unconditional = engine::columnOf(forecast.condition->unconditional, series);
  if (!forecast.hasLimits()) return fan;
  for (const double level : forecastLevels(context.settings)) {
    const engine::ForecastLimits limits = forecast.limits(level);
    fan.limits.push_back({level, engine::columnOf(limits.lower, series), engine::columnOf(limits.upper, series)});
  }
  return fan;
}

std::string rootText(const Texts& texts, const engine::Root& root) {
  constexpr int kPeriodDecimals = 2;
  const std::string modulus = texts.number(modulusText(root.modulus));
  if (!std::isfinite(root.period)) return texts.localize("Modulus ^1", {modulus});
  return texts.localize("Modulus ^1, period ^2", {modulus, texts.number(fixedText(root.period, kPeriodDecimals))});
}

}  // namespace

DocumentChart forecastChart(const ReportContext& context, std::size_t series) {
  const std::string& name = context.names()[series];
  return Fan(context, fanOf(context, series))
      .draw({.id = "Forecast Chart - " + name, .title = context.texts.localize("Forecast") + " - " + name}, name);
}

DocumentChart levelChart(const ReportContext& context, std::size_t series) {
  const SeriesLevels& levels = *context.analysis.forecast->levels[series];
  FanValues fan{.observed = levels.history, .forecast = levels.values};
  for (const SeriesLevels::Limits& limits : levels.limits)
    fan.limits.push_back({limits.level, limits.lower, limits.upper});
  const std::string& name = context.names()[series];
  return Fan(context, std::move(fan))
      .draw({.id = "Forecast Chart in Levels - " + name,
             .title = context.texts.localize("Forecast in Levels") + " - " + name},
            context.texts.localize("^1, in levels", {name}));
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
