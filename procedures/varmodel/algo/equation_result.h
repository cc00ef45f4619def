// The results of one equation of the fitted model.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace varmodel {

// Vectors of vectors hold one inner vector once filled. The coefficient fields belong to lag MAXLAG, whatever lag was
// selected; `residuals` is replaced by the selected lag's when the diagnostics run.
struct EquationResult {
  std::vector<std::vector<double>> coefficients;  // k estimates: constant, lags 1..p of every series, exogenous
  std::vector<std::vector<double>> fittedValues;  // n = T - MAXLAG values
  std::vector<std::vector<double>> residuals;     // actual minus fitted, same rows
  double residualVariance = 0.0;                  // squared deviations from the mean residual, over n - k
  std::string equationName;
  std::vector<std::vector<double>> standardErrors;
  std::vector<std::vector<double>> tStatistics;
  std::vector<std::vector<double>> pValues;  // two-sided
  std::vector<std::vector<double>> lowerLimits;
  std::vector<std::vector<double>> upperLimits;
  double confidenceLevel = 0.0;  // percent

  // Descriptive statistics of the whole retained series.
  std::uint64_t descN = 0;
  double descMean = 0.0;
  double descStdDev = 0.0;  // divisor N - 1
  double descMinimum = 0.0;
  double descMaximum = 0.0;

  // Residual diagnostics of the selected lag.
  double residualSSR = 0.0;
  double rSquare = 0.0;
  double adjustedRSquare = 0.0;
  double meanSquaredError = 0.0;
  double rootMeanSquaredError = 0.0;
  double meanAbsoluteError = 0.0;
  double meanAbsPercentError = 0.0;  // percent
  double jarqueBeraStat = 0.0;
  double jarqueBeraPValue = 1.0;
  double ljungBoxStat = 0.0;
  double ljungBoxPValue = 1.0;
  std::int32_t ljungBoxDF = 0;
  std::vector<double> residualACF;  // r(1) .. r(L)
  std::vector<double> residualACFStdErr;
  std::vector<double> seriesACF;
  std::vector<double> seriesACFStdErr;
  std::vector<std::vector<double>> residualCorrelation;  // K x K, the same in every record
  std::vector<double> residualEigenvalues;               // of that matrix, in the solver's order

  std::vector<double> forecasts;  // point forecasts, one a forecast period
};

// The one inner series of a result field; empty while the field is not filled.
inline const std::vector<double>& onlySeries(const std::vector<std::vector<double>>& field) {
  static const std::vector<double> kNone;
  return field.empty() ? kNone : field.front();
}

}  // namespace varmodel
