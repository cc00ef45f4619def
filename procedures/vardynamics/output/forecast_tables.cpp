#include <string>

#include "engine/linear_algebra/matrix.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/forecast_style.h"
#include "procedures/vardynamics/output/impulse_sentences.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

std::vector<std::string> forecastLabels(const ReportContext& context) {
  const auto& labels = context.observations.labels;
  return {labels.begin() + static_cast<std::ptrdiff_t>(context.observations.sample.rows()), labels.end()};
}

DocumentTable emptyTable(const ReportContext& context, const std::string& suffix) {
  const Texts& texts = context.texts;
  return {.id = "Forecast" + suffix,
          .title = texts.localize("Forecast") + suffix,
          .rowLabel = context.periodLabel(),
          .rows = forecastLabels(context)};
}

Sentences drawnLimitNotes(const ReportContext& context) {
  const Texts& texts = context.texts;
  Sentences notes{texts.localize(
      "The limits are percentiles of futures, one from the model of each draw (Fresoli, Ruiz & Pascual 2015).")};
  append(notes, drawSentences(context));
  if (context.settings.forecast->simultaneous) {
    notes.push_back(texts.localize("The limits hold the whole path of a series at their level."));
  }
  return notes;
}

// How the limits were made.
Sentences limitNotes(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Forecast& forecast = *context.analysis.forecast;
  if (!forecast.drawnLimits.empty()) return drawnLimitNotes(context);
  Sentences notes{texts.localize(
      "Limits from Student's t with ^1 degrees of freedom; standard errors include that of the estimated coefficients.",
      {procedures::shortestNumber(forecast.degreesOfFreedom)})};
  const std::string share = texts.number(procedures::shortestNumber(forecast.correctionShare));
  if (forecast.correctionShare == 0.0) {
    notes.push_back(texts.localize(
        "The limits are not corrected for the bias of the slopes: a root lies on or outside the unit circle."));
  } else if (forecast.correctionShare < 1.0) {
    notes.push_back(texts.localize(
        "The limits are corrected for ^1 of the bias of the slopes: more would make the model unstable.", {share}));
  } else {
    notes.push_back(texts.localize("The limits are corrected for the bias of the slopes (Pope 1990)."));
  }
  return notes;
}

std::vector<TableColumn> allLimits(const ReportContext& context, std::size_t series, int decimals) {
  std::vector<TableColumn> columns;
  for (const double level : context.settings.levels) {
    const engine::ForecastLimits limits = context.analysis.forecast->limits(level);
    append(columns, limitColumns(context.texts, level, engine::columnOf(limits.lower, series),
                                 engine::columnOf(limits.upper, series), decimals));
  }
  return columns;
}

DocumentTable seriesTable(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const Forecast& forecast = *context.analysis.forecast;
  const int decimals = forecastDecimals(context, series);
  DocumentTable table = emptyTable(context, " - " + context.names()[series]);
  table.columns = {{texts.localize("Forecast"), engine::columnOf(forecast.values, series), decimals}};
  if (forecast.standardErrors) {
    table.columns.push_back(
        {texts.localize("Std. Error"), engine::columnOf(*forecast.standardErrors, series), decimals});
  }
  append(table.columns, allLimits(context, series, decimals));
  if (forecast.condition) {
    table.columns.push_back(
        {texts.localize("Unconditional"), engine::columnOf(forecast.condition->unconditional, series), decimals});
  }
  return table;
}

DocumentTable plainTable(const ReportContext& context) {
  DocumentTable table = emptyTable(context, "");
  const Forecast& forecast = *context.analysis.forecast;
  for (std::size_t i = 0; i < context.names().size(); ++i) {
    table.columns.push_back({context.names()[i], engine::columnOf(forecast.values, i), forecastDecimals(context, i)});
  }
  return table;
}

// Where the numbers in levels come from.
Sentences levelNotes(const ReportContext& context, const SeriesLevels& levels) {
  const Texts& texts = context.texts;
  Sentences notes{texts.localize("In the unit of the data, from the forecasts of the transformed series.")};
  if (!context.analysis.forecast->drawnLimits.empty()) {
    notes.push_back(texts.localize("The limits are percentiles of the drawn futures, each told in levels."));
  } else if (!levels.limits.empty()) {
    notes.push_back(texts.localize("The limits come from the joint covariance of the forecasts up to each period."));
  }
  if (levels.median) {
    notes.push_back(
        texts.localize("The values are medians; the mean of a series whose growth is forecast lies above."));
  }
  return notes;
}

// How unusual the held values are.
DocumentTable conditionTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  return {.id = "Condition",
          .title = texts.localize("Condition"),
          .rowLabel = texts.localize("Test"),
          .rows = {texts.localize("Held against unconditional values")},
          .columns = chiSquaredColumns(texts, {context.analysis.forecast->condition->unusual}),
          .notes = conditionSentences(context)};
}

}  // namespace

DocumentTable levelTable(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const SeriesLevels& levels = *context.analysis.forecast->levels[series];
  const int decimals = levelDecimals(context, levels);
  const std::string suffix = " - " + context.names()[series];
  DocumentTable table{.id = "Forecast in Levels" + suffix,
                      .title = texts.localize("Forecast in Levels") + suffix,
                      .rowLabel = context.periodLabel(),
                      .rows = forecastLabels(context),
                      .columns = {{texts.localize("Forecast"), levels.values, decimals}},
                      .notes = levelNotes(context, levels)};
  if (levels.limits.empty()) return table;
  for (const double level : context.settings.levels) {
    const SeriesLevels::Limits& limits = levels.at(level);
    append(table.columns, limitColumns(texts, level, limits.lower, limits.upper, decimals));
  }
  return table;
}

int levelDecimals(const ReportContext& context, const SeriesLevels& levels) {
  if (levels.limits.empty()) return decimalsFor(levels.values.front() - levels.history.back());
  constexpr double kErrorsInWidth = 4.0;  // of limits at 95 %
  const SeriesLevels::Limits& limits = levels.at(context.settings.level());
  std::vector<double> errors;
  for (std::size_t h = 0; h < limits.lower.size(); ++h) {
    errors.push_back((limits.upper[h] - limits.lower[h]) / kErrorsInWidth);
  }
  return decimalsForErrors(errors);
}

int forecastDecimals(const ReportContext& context, std::size_t series) {
  const Forecast& forecast = *context.analysis.forecast;
  if (!forecast.standardErrors) return decimalsFor(context.analysis.model.equations[series].standardError);
  return decimalsForErrors(engine::columnOf(*forecast.standardErrors, series));
}

Tables forecastTables(const ReportContext& context) {
  Tables tables;
  if (!context.analysis.forecast->hasLimits()) {
    tables.push_back(plainTable(context));
  } else {
    for (std::size_t i = 0; i < context.names().size(); ++i) tables.push_back(seriesTable(context, i));
  }
  if (context.analysis.forecast->hasLimits()) tables.front().notes = limitNotes(context);
  if (context.analysis.forecast->condition) tables.push_back(conditionTable(context));
  return tables;
}

}  // namespace vardynamics
