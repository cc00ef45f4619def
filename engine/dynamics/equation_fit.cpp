#include "engine/dynamics/equation_fit.h"

#include <cmath>
#include <limits>

#include "engine/arithmetic/moments.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/regression/lag_selection.h"

namespace engine {

EquationFit equationFit(const FittedVar& fit, const VarSample& sample, std::size_t equation) {
  const std::vector<double>& e = fit.residuals[equation];
  const std::span<const double> y = std::span(sample.series[equation]).subspan(fit.firstRow, e.size());
  std::vector<double> fittedValues(y.begin(), y.end());
  for (std::size_t r = 0; r < e.size(); ++r) fittedValues[r] -= e[r];
  // The explained sum of squares itself, not a difference: a small R square keeps its digits.
  const double explained = sumOfSquaredDeviations(fittedValues, fit.constant ? mean(y) : 0.0);
  const auto n = static_cast<double>(e.size());
  const double free = fit.constant ? 1.0 : 0.0;
  const double slopes = static_cast<double>(regressorCount(fit)) - free;
  const double degrees = residualDegrees(fit);
  EquationFit result;
  result.residualSumOfSquares = sumOfSquares(e);
  result.rSquare = explained / (explained + result.residualSumOfSquares);
  result.adjustedRSquare = 1.0 - (1.0 - result.rSquare) * (n - free) / degrees;
  result.standardError = std::sqrt(result.residualSumOfSquares / degrees);
  if (slopes > 0.0) {
    result.overall = fTest(explained / slopes / (result.residualSumOfSquares / degrees), slopes, degrees);
  }
  return result;
}

CoefficientInference studentInference(const FittedVar& fit, std::size_t equation, double level) {
  const double degrees = residualDegrees(fit);
  const double variance = sumOfSquares(fit.residuals[equation]) / degrees;
  InverseDiagonal inverse;
  for (std::size_t j = 0; j < regressorCount(fit); ++j) inverse.values.push_back(fit.inverse(j, j));
  inverse.exponents.resize(inverse.values.size());
  return inferCoefficients(fit.coefficients.row(equation), variance, inverse, static_cast<std::int64_t>(degrees), level,
                           LimitQuantile::studentT);
}

double logDeterminant(const FittedVar& fit, const Matrix& residualCovariance) {
  const auto factor = choleskyFactor(residualCovariance);
  if (!factor) return -std::numeric_limits<double>::infinity();
  double sum =
      static_cast<double>(seriesCount(fit)) * std::log(residualDegrees(fit) / static_cast<double>(rowCount(fit)));
  for (std::size_t i = 0; i < factor->rows; ++i) sum += 2.0 * std::log((*factor)(i, i));
  return sum;
}

double logLikelihood(const FittedVar& fit, double logDeterminant) {
  return logLikelihood(logDeterminant, ModelSize{.equations = static_cast<std::int64_t>(seriesCount(fit)),
                                                 .rows = static_cast<std::int64_t>(rowCount(fit))});
}

}  // namespace engine
