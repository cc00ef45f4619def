// Tables about the residuals of the selected lag.

#include <algorithm>

#include "procedures/common/number_text.h"
#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/output/var_output_gen.h"

namespace varmodel {

namespace {

// The residual autocorrelation at the model's lag order; the last one there is when that lag was not computed.
double autocorrelationAtLag(const std::vector<double>& autocorrelations, std::int32_t lagOrder) {
  if (autocorrelations.empty()) return 0.0;
  const auto index = static_cast<std::size_t>(std::max(lagOrder, 1) - 1);
  return autocorrelations[std::min(index, autocorrelations.size() - 1)];
}

}  // namespace

int VAROutputGen::generateResidualCorrelationMatrix() {
  if (settings_->endogenousNames.empty() || algo_->residualCovariance.empty() || results_->empty()) return 1;
  const auto table =
      createTable("Correlation Matrix of Residuals", {.title = localize("Correlation Matrix of Residuals"),
                                                      .decimals = 4,
                                                      .rowLabel = localize("Variable"),
                                                      .columnLabel = " "});
  if (!table) {
    traceError("generateResidualCorrelationMatrix", "Correlation table creation failed");
    return 1;
  }
  addMatrixTable(*table, results_->front().residualCorrelation);
  if (settings_->showEigen) {
    table->addTitleFootnoteRef(0);
    table->addFootnote(eigenvalueFootnote());
  }
  table->build();
  return 0;
}

std::string VAROutputGen::eigenvalueFootnote() const {
  std::string values;
  for (const double value : results_->front().residualEigenvalues) {
    if (!values.empty()) values += ", ";
    values += procedures::sixDecimals(value);
  }
  return localize("Eigen Values of Residual Correlation Matrix") + "  : " + values;
}

int VAROutputGen::generateResidualCovarianceMatrix() {
  if (settings_->endogenousNames.empty() || algo_->residualCovariance.empty()) return 1;
  const std::string title = localize("Covariance Matrix of Residuals");
  const auto table = createTable(title, {.title = title, .rowLabel = localize("Variable"), .columnLabel = " "});
  if (!table) {
    traceError("generateResidualCovarianceMatrix", "Covariance table creation failed");
    return 1;
  }
  addMatrixTable(*table, algo_->residualCovariance);
  table->addTitleFootnoteRef(0);
  table->addFootnote(localize("Determinant of Residual Covariance matrix is ") +
                     procedures::sixDecimals(algo_->residualCovarianceDeterminant));
  table->build();
  return 0;
}

// Rows and columns are the endogenous variables.
void VAROutputGen::addMatrixTable(Table& table, const std::vector<std::vector<double>>& matrix) {
  table.addColumnCategories(settings_->endogenousNames);
  table.addRowCategories(settings_->endogenousNames);
  for (std::size_t i = 0; i < matrix.size(); ++i) table.fillRow(static_cast<int>(i), matrix[i]);
}

int VAROutputGen::generateResidualDiagnostics() {
  if (!settings_->showTestAutocorrelation && !settings_->showTestNormality) return 0;
  if (results_->empty()) {
    traceError("generateResidualDiagnostics", "No results available");
    return 1;
  }
  const std::string title = localize("Test for Residuals");
  const auto table = createTable(title, {.title = title, .rowLabel = localize("Variable"), .columnLabel = " "});
  if (!table) {
    traceError("generateResidualDiagnostics", "Table creation failed");
    return 1;
  }
  int category = 0;
  const auto addTest = [&](bool requested, const char* test, std::initializer_list<const char*> statistics) {
    if (!requested) return;
    table->addColumnCategories({localize(test)});
    table->addColumnSubcategories(category++, localizeAll(statistics));
  };
  addTest(settings_->showTestAutocorrelation, "Test for Autocorrelation of Residuals",
          {"Ljung-Box Statistic", "df", "Sig."});
  addTest(settings_->showTestNormality, "Test for Normality of Residuals", {"Jarque-Bera Statistic", "Sig."});
  table->addColumnCategories({localize("Residual ACF")});
  table->addRowCategories(equationNames());
  for (std::size_t i = 0; i < results_->size(); ++i) {
    table->fillRow(static_cast<int>(i), residualDiagnosticsRow((*results_)[i]));
  }
  table->build();
  return 0;
}

std::vector<double> VAROutputGen::residualDiagnosticsRow(const EquationResult& result) const {
  std::vector<double> row;
  if (settings_->showTestAutocorrelation) {
    row = {result.ljungBoxStat, static_cast<double>(result.ljungBoxDF), result.ljungBoxPValue};
  }
  if (settings_->showTestNormality) {
    row.push_back(result.jarqueBeraStat);
    row.push_back(result.jarqueBeraPValue);
  }
  row.push_back(autocorrelationAtLag(result.residualACF, algo_->optimalLag));
  return row;
}

}  // namespace varmodel
