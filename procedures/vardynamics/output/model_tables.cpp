#include <algorithm>
#include <string>

#include "host/codes.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/analysis/regressors.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"
#include "procedures/vardynamics/output/table_parts.h"
#include "procedures/vardynamics/output/tables.h"

namespace vardynamics {
namespace {

constexpr int kCoefficientDigits = 3;
constexpr int kMostCoefficientDecimals = 6;
constexpr int kProbabilityDecimals = 4;

std::string criterionName(const engine::CriterionRow& row) {
  return std::string(row.name);
}

// The lag, with a star and the criteria that are smallest there.
std::string lagLabel(const LagSelection& selection, std::int32_t lag) {
  std::string stars;
  for (const engine::CriterionRow& row : engine::criterionTable()) {
    if (selection.chosenBy(row.criterion) == lag) stars += (stars.empty() ? " * " : ", ") + criterionName(row);
  }
  return std::to_string(lag) + stars;
}

// The likelihood ratio of each lag against the one below it.
std::vector<std::optional<engine::ChiSquaredTest>> likelihoodRatios(const engine::VarEstimation& candidates) {
  std::vector<std::optional<engine::ChiSquaredTest>> tests;
  for (const engine::LagEstimate& candidate : candidates.lags) {
    const auto ratio = engine::likelihoodRatio(candidates, candidate.lag);
    auto& test = tests.emplace_back();
    if (ratio) test = engine::chiSquaredTest(ratio->statistic, static_cast<double>(ratio->degreesOfFreedom));
  }
  return tests;
}

TableColumn criterionColumn(const engine::CriterionRow& row, const std::vector<engine::LagEstimate>& lags) {
  const auto index = static_cast<std::size_t>(row.criterion);
  const std::string name = criterionName(row);
  return {row.logarithmic ? "ln(" + name + ")" : name,
          columnOf(lags, [index](const auto& lag) { return lag.criteria[index]; })};
}

DocumentTable selectionTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const LagSelection& selection = *context.analysis.model.selection;
  const auto& lags = selection.candidates.lags;
  DocumentTable table{
      .id = "Lag Selection", .title = texts.localize("Lag Selection"), .rowLabel = texts.localize("Lag")};
  for (const auto& lag : lags) table.rows.push_back(lagLabel(selection, lag.lag));
  const auto ratios = chiSquaredColumns(texts, likelihoodRatios(selection.candidates));
  table.columns.push_back(
      {texts.localize("Log Likelihood"), columnOf(lags, [](const auto& lag) { return lag.logLikelihood; })});
  table.columns.push_back({texts.localize("LR"), ratios[0].values});
  table.columns.push_back(ratios[2]);
  for (const auto& row : engine::criterionTable()) table.columns.push_back(criterionColumn(row, lags));
  append(table.notes, lagSentences(context));
  table.notes.push_back(texts.localize(
      "All lags on the same ^1 rows; a star marks the smallest value of a criterion. LR: against the lag "
      "below, ^2 degrees of freedom.",
      {std::to_string(selection.candidates.rows), std::to_string(context.names().size() * context.names().size())}));
  return table;
}

std::string seasonLabel(const ReportContext& context, std::size_t season) {
  const Seasons& seasons = context.observations.seasons;
  const std::string number = std::to_string(seasons.components[season]);
  const Texts& texts = context.texts;
  switch (seasons.unitCode) {
    case codes::kQuarter:
      return texts.localize("Quarter ^1", {number});
    case codes::kMonth:
      return texts.localize("Month ^1", {number});
    case codes::kWeek:
      return texts.localize("Week ^1", {number});
    case codes::kHour:
      return texts.localize("Hour ^1", {number});
    default:
      return texts.localize("Season ^1", {number});
  }
}

std::string regressorLabel(const ReportContext& context, const Regressor& regressor) {
  switch (regressor.kind) {
    case Regressor::Kind::constant:
      return context.texts.localize("Constant");
    case Regressor::Kind::trend:
      return context.texts.localize("Trend");
    case Regressor::Kind::season:
      return seasonLabel(context, regressor.index);
    case Regressor::Kind::endogenous:
    case Regressor::Kind::exogenous:
      break;
  }
  return plainName(regressor, context.settings.model);
}

std::vector<std::string> regressorLabels(const ReportContext& context) {
  std::vector<std::string> labels;
  const auto regressors =
      regressorsOf(context.settings.model, context.analysis.model.lag(), context.observations.seasons.cycle);
  for (const Regressor& regressor : regressors) labels.push_back(regressorLabel(context, regressor));
  return labels;
}

DocumentTable parameterTable(const ReportContext& context, std::size_t equation) {
  const Texts& texts = context.texts;
  const engine::CoefficientInference& found = context.analysis.model.inference[equation];
  const auto coefficients = context.analysis.model.fit.coefficients.row(equation);
  const int decimals = std::min(decimalsForErrors(found.standardErrors, kCoefficientDigits), kMostCoefficientDecimals);
  const std::string suffix = " - " + context.names()[equation];
  DocumentTable table{.id = "Parameters" + suffix,
                      .title = texts.localize("Parameters") + suffix,
                      .rowLabel = texts.localize("Regressor"),
                      .rows = regressorLabels(context),
                      .columns = {{texts.localize("Coefficient"), {coefficients.begin(), coefficients.end()}, decimals},
                                  {texts.localize("Std. Error"), found.standardErrors, decimals},
                                  {texts.localize("t"), found.tStatistics},
                                  probabilityColumn(texts, found.pValues)}};
  append(table.columns, limitColumns(texts, context.settings.level(), found.lowerLimits, found.upperLimits, decimals));
  return table;
}

DocumentTable fitTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Model& model = context.analysis.model;
  DocumentTable table{.id = "Model Fit", .title = texts.localize("Model Fit"), .rowLabel = texts.localize("Equation")};
  table.rows = context.names();
  std::vector<std::optional<engine::FTest>> tests;
  for (const auto& equation : model.equations) tests.push_back(equation.overall);
  const auto column = [&](double engine::EquationFit::*value) {
    return columnOf(model.equations, [value](const auto& equation) { return equation.*value; });
  };
  const std::vector<double> errors = column(&engine::EquationFit::standardError);
  table.columns = {
      {texts.localize("R Square"), column(&engine::EquationFit::rSquare), kProbabilityDecimals},
      {texts.localize("Adjusted R Square"), column(&engine::EquationFit::adjustedRSquare), kProbabilityDecimals},
      {texts.localize("Std. Error"), errors, decimalsForErrors(errors)}};
  append(table.columns, fColumns(texts, tests));
  table.notes = {
      texts.localize("Log-likelihood of the model: ^1; logarithm of the determinant of its residual "
                     "covariance (divisor n): ^2.",
                     {texts.number(fixedText(model.logLikelihood, 3)),
                      texts.number(fixedText(model.logDeterminant, kProbabilityDecimals))})};
  return table;
}

DocumentTable matrixTable(const ReportContext& context, const engine::Matrix& matrix, int decimals) {
  DocumentTable table{.id = "", .title = "", .rowLabel = context.texts.localize("Residuals of")};
  table.rows = context.names();
  for (std::size_t j = 0; j < matrix.columns; ++j) {
    table.columns.push_back({context.names()[j], engine::columnOf(matrix, j), decimals});
  }
  return table;
}

DocumentTable covarianceTable(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Model& model = context.analysis.model;
  std::vector<double> variances;
  for (std::size_t i = 0; i < model.covariance.rows; ++i) variances.push_back(model.covariance(i, i));
  DocumentTable table = matrixTable(context, model.covariance, decimalsForErrors(variances));
  table.id = "Residual Covariance";
  table.title = texts.localize("Residual Covariance");
  table.notes = {texts.localize(
      "Divisor n - m = ^1. Programs that print the maximum-likelihood estimate divide by n = "
      "^2.",
      {procedures::shortestNumber(engine::residualDegrees(model.fit)), std::to_string(engine::rowCount(model.fit))})};
  return table;
}

DocumentTable correlationTable(const ReportContext& context) {
  DocumentTable table = matrixTable(context, context.analysis.model.correlations, kProbabilityDecimals);
  table.id = "Residual Correlation";
  table.title = context.texts.localize("Residual Correlation");
  return table;
}

}  // namespace

Tables modelTables(const ReportContext& context) {
  Tables tables;
  if (context.analysis.model.selection) tables.push_back(selectionTable(context));
  for (std::size_t i = 0; i < context.names().size(); ++i) tables.push_back(parameterTable(context, i));
  tables.push_back(fitTable(context));
  tables.push_back(covarianceTable(context));
  tables.push_back(correlationTable(context));
  return tables;
}

}  // namespace vardynamics
