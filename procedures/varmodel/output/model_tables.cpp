// Tables that describe the estimated model.

#include <array>

#include "host/codes.h"
#include "procedures/common/number_text.h"
#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/output/var_output_gen.h"

namespace varmodel {

namespace {

struct FitMeasure {
  bool VARInputSettings::*requested;
  const char* key;
  double EquationResult::*value;
};

constexpr std::array<FitMeasure, 7> kFitMeasures = {{
    {&VARInputSettings::showRes, "Residual Sum of Squares", &EquationResult::residualSSR},
    {&VARInputSettings::showRSquare, "R Square", &EquationResult::rSquare},
    {&VARInputSettings::showAdjRSquare, "Adjusted R Square", &EquationResult::adjustedRSquare},
    {&VARInputSettings::showMse, "MSE", &EquationResult::meanSquaredError},
    {&VARInputSettings::showRmse, "RMSE", &EquationResult::rootMeanSquaredError},
    {&VARInputSettings::showMae, "MAE", &EquationResult::meanAbsoluteError},
    {&VARInputSettings::showMape, "MAPE", &EquationResult::meanAbsPercentError},
}};

std::vector<FitMeasure> requestedFitMeasures(const VARInputSettings& settings) {
  std::vector<FitMeasure> measures;
  for (const FitMeasure& measure : kFitMeasures) {
    if (settings.*measure.requested) measures.push_back(measure);
  }
  return measures;
}

template <class Statistic>
std::vector<double> columnOf(const std::vector<EquationResult>& results, Statistic EquationResult::*statistic) {
  std::vector<double> column;
  for (const EquationResult& result : results) column.push_back(static_cast<double>(result.*statistic));
  return column;
}

// The columns of the parameter table, in order.
constexpr std::array kInferenceFields = {&EquationResult::coefficients, &EquationResult::standardErrors,
                                         &EquationResult::tStatistics,  &EquationResult::pValues,
                                         &EquationResult::lowerLimits,  &EquationResult::upperLimits};

int creationFailed(const char* routine) {
  traceError(routine, "Table creation failed");
  return 1;
}

}  // namespace

int VAROutputGen::generateDescriptiveStatistics() {
  if (results_->empty()) return 1;
  const auto table = createTable("Descriptive Statistics", {.title = localize("Descriptive Statistics"),
                                                            .showsTitle = false,
                                                            .rowLabel = localize("Variable"),
                                                            .columnLabel = localize("Statistics")});
  if (!table) return creationFailed("generateDescriptiveStatistics");
  table->addColumnCategories(localizeAll({"N", "Mean", "Std. Deviation", "Minimum", "Maximum"}));
  table->addRowCategories(equationNames());
  table->fillColumn(0, columnOf(*results_, &EquationResult::descN));
  table->fillColumn(1, columnOf(*results_, &EquationResult::descMean));
  table->fillColumn(2, columnOf(*results_, &EquationResult::descStdDev));
  table->fillColumn(3, columnOf(*results_, &EquationResult::descMinimum));
  table->fillColumn(4, columnOf(*results_, &EquationResult::descMaximum));
  table->setColumnFormat(0, codes::kNumericFormat, procedures::kCellWidth, 0);
  table->build();
  return 0;
}

int VAROutputGen::generateLagOrderCriteria() {
  if (algo_->lagOrders.empty()) return 1;
  const std::string title = localize("Goodness of Fit");
  const auto table = createTable(title, {.title = title,
                                         .limitsWidth = false,
                                         .showsTitle = false,
                                         .rowLabel = localize("Lag Order"),
                                         .columnLabel = localize("Criteria")});
  if (!table) return creationFailed("generateLagOrderCriteria");
  Texts labels{localize("Log Likelihood")};
  std::vector<const std::vector<double>*> columns{&algo_->logLikelihoods};
  const auto addCriterion = [&](bool requested, const char* key, const std::vector<double>& values) {
    if (!requested) return;
    labels.push_back(localize(key));
    columns.push_back(&values);
  };
  addCriterion(settings_->useAic, "AIC", algo_->aicValues);
  addCriterion(settings_->useBic, "BIC", algo_->bicValues);
  addCriterion(settings_->useHqic, "HQIC", algo_->hqicValues);
  Texts rows;
  for (const std::int32_t lag : algo_->lagOrders) rows.push_back(localize("Lag ") + std::to_string(lag));
  table->addColumnCategories(labels);
  table->addRowCategories(rows);
  for (std::size_t i = 0; i < columns.size(); ++i) table->fillColumn(static_cast<int>(i), *columns[i]);
  table->addTitleFootnoteRef(0);
  table->addFootnote(lagOrderFootnote());
  table->build();
  return 0;
}

// The blanks are uneven on purpose: the text is fixed.
std::string VAROutputGen::lagOrderFootnote() const {
  const std::string lag = localize("Lag ");
  std::string text = localize("Optimal lag: ") + " " + std::to_string(algo_->optimalLag) + " .";
  if (settings_->useAic) text += "AIC : " + lag + std::to_string(algo_->aicLag) + " ";
  if (settings_->useBic) text += ", BIC : " + lag + std::to_string(algo_->bicLag) + " ";
  if (settings_->useHqic) text += ", HQIC : " + lag + std::to_string(algo_->hqicLag);
  return text;
}

int VAROutputGen::generateModelParameters() {
  if (results_->empty()) return 1;
  const std::string level = procedures::confidenceLevelText(settings_->ciLevel);
  Texts columns = localizeAll({"Coefficients", "Standard Error", "t", "Sig."});
  columns.push_back(localize("^1 CI Lower", level));
  columns.push_back(localize("^1 CI Upper", level));
  const Texts rows = regressorLabels();
  for (const EquationResult& result : *results_) {
    const std::string title = localize("VAR Model Parameters") + " - " + result.equationName;
    const auto table = createTable(title, {.title = title,
                                           .decimals = 4,
                                           .limitsWidth = false,
                                           .showsTitle = false,
                                           .rowLabel = localize("Variable"),
                                           .columnLabel = localize("Statistics")});
    if (!table) return creationFailed("generateModelParameters");
    table->addColumnCategories(columns);
    table->addRowCategories(rows);
    for (std::size_t i = 0; i < kInferenceFields.size(); ++i) {
      table->fillColumn(static_cast<int>(i), onlySeries(result.*kInferenceFields[i]));
    }
    table->build();
  }
  return 0;
}

// The parameters belong to lag MAXLAG, in regressor order.
VAROutputGen::Texts VAROutputGen::regressorLabels() const {
  Texts labels{localize("Constant")};
  for (std::int32_t lag = 1; lag <= settings_->maxLag; ++lag) {
    for (const std::string& name : settings_->endogenousNames) {
      labels.push_back(name + "(t-" + std::to_string(lag) + ")");
    }
  }
  labels.insert(labels.end(), settings_->exogenousNames.begin(), settings_->exogenousNames.end());
  return labels;
}

int VAROutputGen::generateModelFitStatistics() {
  const std::vector<FitMeasure> measures = requestedFitMeasures(*settings_);
  if (measures.empty()) return 0;
  if (results_->empty()) return 1;
  const std::string title = localize("Model Fit Statistics");
  const auto table =
      createTable(title, {.title = title, .rowLabel = localize("Variable"), .columnLabel = localize(" ")});
  if (!table) return creationFailed("generateModelFitStatistics");
  Texts columns;
  for (const FitMeasure& measure : measures) columns.push_back(localize(measure.key));
  table->addColumnCategories(columns);
  table->addRowCategories(settings_->endogenousNames);
  for (std::size_t i = 0; i < results_->size(); ++i) {
    std::vector<double> row;
    for (const FitMeasure& measure : measures) row.push_back((*results_)[i].*measure.value);
    table->fillRow(static_cast<int>(i), row);
  }
  table->build();
  return 0;
}

}  // namespace varmodel
