// Residual diagnostics of the selected lag, and descriptive statistics of the series.

#include <algorithm>
#include <iostream>
#include <optional>
#include <span>
#include <utility>

#include "engine/arithmetic/moments.h"
#include "engine/diagnostics/autocorrelation.h"
#include "engine/diagnostics/descriptives.h"
#include "engine/diagnostics/fit_measures.h"
#include "engine/diagnostics/residual_tests.h"
#include "engine/linear_algebra/eigenvalues.h"
#include "engine/regression/residual_covariance.h"
#include "procedures/varmodel/algo/var_algo.h"

namespace varmodel {
namespace {

struct Equation {
  std::span<const double> residuals;  // of the selected lag
  std::span<const double> series;     // the whole endogenous column
  std::int32_t lag = 0;               // the selected lag
  std::size_t equationCount = 0;
};

// The observations after the first `lag`. With a selected lag below MAXLAG these are more than the residuals.
std::span<const double> actualValues(const Equation& equation) {
  return equation.series.subspan(static_cast<std::size_t>(equation.lag));
}

void computeRSquares(const VARInputSettings& settings, const Equation& equation, EquationResult& result) {
  if (settings.showRSquare) result.rSquare = engine::rSquare(result.residualSSR, actualValues(equation));
  if (!settings.showAdjRSquare) return;
  const std::int64_t regressors = equation.lag * static_cast<std::int64_t>(equation.equationCount);
  result.adjustedRSquare = engine::adjustedRSquare(result.rSquare, std::ssize(equation.series), regressors);
}

void computeErrorMeasures(const VARInputSettings& settings, const Equation& equation, EquationResult& result) {
  if (!settings.showMse && !settings.showRmse && !settings.showMae && !settings.showMape) return;
  const engine::ErrorMeasures measures = engine::errorMeasures(equation.residuals, actualValues(equation));
  if (settings.showMse) result.meanSquaredError = measures.meanSquared;
  if (settings.showRmse) result.rootMeanSquaredError = measures.rootMeanSquared;
  if (settings.showMae) result.meanAbsoluteError = measures.meanAbsolute;
  if (settings.showMape) result.meanAbsPercentError = measures.meanAbsolutePercent;
}

void testNormality(const Equation& equation, EquationResult& result) {
  const engine::TestResult test = engine::jarqueBera(equation.residuals).value_or(engine::TestResult{});
  result.jarqueBeraStat = test.statistic;
  result.jarqueBeraPValue = test.pValue;
}

// The degrees of freedom reported allow for the lag order; those of the p-value do not. Both on purpose.
void testAutocorrelation(const VARInputSettings& settings, const Equation& equation, EquationResult& result) {
  const std::int32_t lags = engine::ljungBoxLagCount(settings.timeAxis.timeUnitNames, settings.maxLag);
  const std::optional<engine::TestResult> test = engine::ljungBox(equation.residuals, lags);
  result.ljungBoxStat = test.value_or(engine::TestResult{}).statistic;
  result.ljungBoxPValue = test.value_or(engine::TestResult{}).pValue;
  result.ljungBoxDF = test ? std::max(lags - equation.lag, 1) : 0;
}

// The residual tests' table shows a residual autocorrelation, so that the tests ask for them too.
bool residualAcfIsRequested(const VARInputSettings& settings) {
  return settings.showResidAcf || settings.plotResAcf || settings.showTestAutocorrelation || settings.showTestNormality;
}

void computeAutocorrelations(const VARInputSettings& settings, const Equation& equation, EquationResult& result) {
  const std::int32_t lags = settings.maxLag >= 1 ? settings.maxLag : equation.lag;
  if (residualAcfIsRequested(settings)) {
    engine::Autocorrelations acf =
        engine::autocorrelations(equation.residuals, lags).value_or(engine::Autocorrelations{});
    result.residualACF = std::move(acf.values);
    result.residualACFStdErr = std::move(acf.standardErrors);
  }
  if (settings.plotAcf) {
    engine::Autocorrelations acf = engine::autocorrelations(equation.series, lags).value_or(engine::Autocorrelations{});
    result.seriesACF = std::move(acf.values);
    result.seriesACFStdErr = std::move(acf.standardErrors);
  }
}

void diagnoseEquation(const VARInputSettings& settings, const Equation& equation, EquationResult& result) {
  result.residuals.resize(1);
  result.residuals.front().assign(equation.residuals.begin(), equation.residuals.end());
  result.residualSSR = engine::sumOfSquares(equation.residuals);
  computeRSquares(settings, equation, result);
  computeErrorMeasures(settings, equation, result);
  if (settings.showTestNormality) testNormality(equation, result);
  if (settings.showTestAutocorrelation) testAutocorrelation(settings, equation, result);
  computeAutocorrelations(settings, equation, result);
}

}  // namespace

bool VARAlgo::computeResidualDiagnostics() {
  const SeriesList& endogenous = settings.endogenousSeries;
  const auto entry = residualsByLag.find(optimalLag);
  if (endogenous.empty() || entry == residualsByLag.end()) return false;
  const SeriesList& residuals = entry->second;
  SeriesList correlation;
  std::vector<double> eigenvalues;
  if (settings.showCorrMatrix) correlation = engine::correlationFromCovariance(residualCovariance);
  if (settings.showEigen) eigenvalues = engine::eigenvaluesOf(correlation);
  for (std::size_t i = 0; i < endogenous.size() && i < residuals.size(); ++i) {
    const Equation equation{residuals[i], endogenous[i], optimalLag, endogenous.size()};
    EquationResult& result = equationResults[i];
    diagnoseEquation(settings, equation, result);
    if (settings.showCorrMatrix) result.residualCorrelation = correlation;
    if (settings.showEigen) result.residualEigenvalues = eigenvalues;
  }
  return true;
}

bool VARAlgo::computeDescriptiveStats() {
  std::cerr << "VARAlgo::computeDescriptiveStats - Computing descriptive statistics\n";
  const SeriesList& endogenous = settings.endogenousSeries;
  if (endogenous.empty()) {
    std::cerr << "VARAlgo::computeDescriptiveStats - ERROR: No endogenous data\n";
    return false;
  }
  for (std::size_t i = 0; i < endogenous.size() && i < equationResults.size(); ++i) {
    const engine::Descriptives statistics = engine::describe(endogenous[i]);
    EquationResult& result = equationResults[i];
    result.descN = statistics.n;
    result.descMean = statistics.mean;
    result.descStdDev = statistics.standardDeviation;
    result.descMinimum = statistics.minimum;
    result.descMaximum = statistics.maximum;
  }
  std::cerr << "VARAlgo::computeDescriptiveStats - Computed statistics for " << endogenous.size() << " variables\n";
  return true;
}

}  // namespace varmodel
