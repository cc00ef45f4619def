#include <string>

#include "procedures/common/number_text.h"
#include "procedures/vardynamics/output/backtest_parts.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

using Comparison = std::optional<engine::ForecastComparison>;

// Of measures in the units of a series: their smallest root mean square shows four digits.
int errorDecimals(const SeriesScores& scores) {
  return decimalsForErrors(
      columnOf(scores.model, [](const ModelScore& score) { return score.errors.accuracy.rootMeanSquare; }));
}

std::vector<ModelScore> printedScores(const ReportContext& context, const SeriesScores& scores) {
  std::vector<ModelScore> printed;
  for (const std::size_t h : backtestHorizons(context)) printed.push_back(scores.model[h - 1]);
  return printed;
}

// "95% Inside" for each level, then of how many.
std::vector<TableColumn> insideColumns(const ReportContext& context, const std::vector<ModelScore>& scores) {
  const Texts& texts = context.texts;
  std::vector<TableColumn> columns;
  for (std::size_t level = 0; level < context.settings.levels.size(); ++level) {
    const std::string percent = procedures::confidenceLevelText(context.settings.levels[level]);
    columns.push_back(
        {texts.localize("^1 Inside", {percent}),
         columnOf(scores, [level](const auto& score) { return static_cast<double>(score.inside[level]); }), 0});
  }
  columns.push_back(
      {texts.localize("Of"),
       columnOf(scores, [](const auto& score) { return static_cast<double>(score.errors.accuracy.count); }), 0});
  return columns;
}

DocumentTable accuracyTable(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const SeriesScores& scores = context.analysis.backtest->series[series];
  const std::vector<ModelScore> printed = printedScores(context, scores);
  const int decimals = errorDecimals(scores);
  DocumentTable table{.id = "Back-Test - " + context.names()[series],
                      .title = texts.localize("Back-Test") + " - " + context.names()[series],
                      .rowLabel = texts.localize("Horizon")};
  for (const std::size_t h : backtestHorizons(context)) table.rows.push_back(std::to_string(h));
  const auto column = [&](double engine::ForecastAccuracy::*value) {
    return columnOf(printed, [value](const auto& score) { return score.errors.accuracy.*value; });
  };
  table.columns = {
      {texts.localize("RMSE"), column(&engine::ForecastAccuracy::rootMeanSquare), decimals},
      {texts.localize("MAE"), column(&engine::ForecastAccuracy::meanAbsolute), decimals},
      {texts.localize("Bias"), column(&engine::ForecastAccuracy::bias), decimals},
      {texts.localize("MASE"), columnOf(printed, [](const auto& score) { return score.errors.scaledError; })},
      {texts.localize("CRPS"), columnOf(printed, [](const auto& score) { return score.rankedProbability; }), decimals}};
  append(table.columns, insideColumns(context, printed));
  return table;
}

std::vector<TableColumn> comparisonColumns(const Texts& texts, const std::vector<Comparison>& tests,
                                           const std::string& statistic, const std::string& name) {
  const auto column = [&](double engine::ForecastComparison::*value) {
    return columnOf(tests, [value](const Comparison& test) { return test ? (*test).*value : kNoValue; });
  };
  using Test = engine::ForecastComparison;
  return grouped({{statistic, column(&Test::statistic)}, probabilityColumn(texts, column(&Test::pValue))}, name);
}

DocumentTable rivalTable(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  const SeriesScores& scores = context.analysis.backtest->series[series];
  const int decimals = errorDecimals(scores);
  DocumentTable table{.id = "Back-Test Against Rivals - " + context.names()[series],
                      .title = texts.localize("Back-Test Against Rivals") + " - " + context.names()[series],
                      .rowLabel = texts.localize("Rival, Horizon"),
                      .notes = {rivalSentence(context, series)}};
  std::vector<RivalScore> rows;
  for (const RivalScores& rival : scores.rivals) {
    for (const std::size_t h : backtestHorizons(context)) {
      table.rows.push_back(rivalName(context, rival.rival) + ", " + std::to_string(h));
      rows.push_back(rival.horizons[h - 1]);
    }
  }
  table.columns = {{texts.localize("RMSE"),
                    columnOf(rows, [](const auto& row) { return row.errors.accuracy.rootMeanSquare; }), decimals},
                   {texts.localize("MAE"),
                    columnOf(rows, [](const auto& row) { return row.errors.accuracy.meanAbsolute; }), decimals},
                   {texts.localize("MASE"), columnOf(rows, [](const auto& row) { return row.errors.scaledError; })},
                   {texts.localize("Skill"), columnOf(rows, [](const auto& row) { return row.skill; })}};
  const auto tests = [&](Comparison RivalScore::*test) {
    std::vector<Comparison> column;
    for (const RivalScore& row : rows) column.push_back(row.*test);
    return column;
  };
  append(table.columns, comparisonColumns(texts, tests(&RivalScore::dieboldMariano), texts.localize("t"),
                                          texts.localize("Diebold-Mariano")));
  append(table.columns,
         comparisonColumns(texts, tests(&RivalScore::clarkWest), texts.localize("z"), texts.localize("Clark-West")));
  return table;
}

}  // namespace

Tables backtestTables(const ReportContext& context, std::size_t series) {
  const Texts& texts = context.texts;
  Tables tables{accuracyTable(context, series), rivalTable(context, series)};
  append(tables.front().notes, {coverageSentence(context, series)});
  if (series > 0) return tables;
  append(tables.front().notes, backtestNotes(context));
  append(
      tables.back().notes,
      {texts.localize(
           "No change: the last value. Seasonal: the value one cycle before. AR: an autoregression of the same "
           "lag with the model's constant, trend and seasons."),
       texts.localize("Skill: 1 less the ratio of the model's mean squared error to the rival's. Positive statistics "
                      "speak for the model. Diebold-Mariano: two-sided, Student's t; Clark-West, where the model "
                      "nests the rival: one-sided, normal.")});
  return tables;
}

}  // namespace vardynamics
