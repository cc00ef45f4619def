// Sentences about the forecast and its condition.

#include <string>

#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/forecast_style.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

std::string lastValue(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const Forecast& forecast = *context.analysis.forecast;
  const std::size_t last = forecast.horizon() - 1;
  const int decimals = forecastDecimals(context, series);
  const auto text = [&](double value) { return texts.number(fixedText(value, decimals)); };
  const std::string& name = context.names()[series];
  const std::string& period = context.observations.labels.back();
  const std::string value = text(forecast.values(last, series));
  const bool held = forecast.standardErrors && (*forecast.standardErrors)(last, series) == 0.0;
  if (!forecast.hasLimits() || held) return texts.localize("Forecast of ^1 for ^2: ^3.", {name, period, value});
  const engine::ForecastLimits limits = forecast.limits(context.settings.level());
  return texts.localize("Forecast of ^1 for ^2: ^3, ^4 limits ^5 and ^6.",
                        {name, period, value, texts.percent(context.settings.level()), text(limits.lower(last, series)),
                         text(limits.upper(last, series))});
}

std::string lastLevel(const ReportContext& context, const std::string& name, const SeriesLevels& levels) {
  const Texts& texts = context.texts;
  const int decimals = levelDecimals(context, levels);
  const auto text = [&](double value) { return texts.number(fixedText(value, decimals)); };
  const std::string& period = context.observations.labels.back();
  const std::string value = text(levels.values.back());
  if (levels.limits.empty()) return texts.localize("Forecast of ^1 in levels for ^2: ^3.", {name, period, value});
  const SeriesLevels::Limits& limits = levels.at(context.settings.level());
  return texts.localize("Forecast of ^1 in levels for ^2: ^3, ^4 limits ^5 and ^6.",
                        {name, period, value, texts.percent(context.settings.level()), text(limits.lower.back()),
                         text(limits.upper.back())});
}

}  // namespace

Sentences forecastSentences(const ReportContext& context) {
  Sentences sentences;
  const Levels& levels = context.analysis.forecast->levels;
  for (std::size_t i = 0; i < context.names().size(); ++i) {
    sentences.push_back(lastValue(context, i));
    if (i < levels.size() && levels[i]) sentences.push_back(lastLevel(context, context.names()[i], *levels[i]));
  }
  return sentences;
}

Sentences conditionSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Condition& condition = *context.analysis.forecast->condition;
  const std::string p = context.probability(condition.unusual.pValue);
  const std::string held = std::to_string(condition.held.size());
  return {context.rejects(condition.unusual.pValue)
              ? texts.localize("The ^1 held values lie unusually far from the unconditional forecast (^2).", {held, p})
              : texts.localize("The ^1 held values lie within what the unconditional forecast leaves open (^2).",
                               {held, p}),
          texts.localize("A held value moves earlier periods too. The order of the series plays no part.")};
}

}  // namespace vardynamics
