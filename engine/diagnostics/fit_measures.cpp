#include "engine/diagnostics/fit_measures.h"

#include <cmath>

#include "engine/arithmetic/moments.h"

namespace engine {
namespace {

constexpr double kSmallestDivisor = 1e-10;

double meanAbsolutePercentError(std::span<const double> residuals, std::span<const double> y) {
  double sum = 0.0;
  std::int64_t count = 0;
  for (std::size_t t = 0; t < y.size(); ++t) {
    if (std::abs(y[t]) <= kSmallestDivisor) continue;
    sum += std::abs(residuals[t] / y[t]);
    ++count;
  }
  return count > 0 ? 100.0 * sum / static_cast<double>(count) : 0.0;
}

}  // namespace

double rSquare(double residualSumOfSquares, std::span<const double> y) {
  if (y.empty()) return 0.0;
  const double total = sumOfSquaredDeviations(y, mean(y));
  return total > 0.0 ? 1.0 - residualSumOfSquares / total : 0.0;
}

double adjustedRSquare(double rSquare, std::int64_t observations, std::int64_t regressors) {
  if (observations <= regressors + 1) return 0.0;
  return 1.0 -
         (1.0 - rSquare) * static_cast<double>(observations - 1) / static_cast<double>(observations - regressors - 1);
}

ErrorMeasures errorMeasures(std::span<const double> residuals, std::span<const double> y) {
  if (residuals.empty() || residuals.size() != y.size()) return {};
  const auto n = static_cast<double>(residuals.size());
  double absolute = 0.0;
  for (const double e : residuals) absolute += std::abs(e);
  ErrorMeasures result;
  result.meanSquared = sumOfSquares(residuals) / n;
  result.rootMeanSquared = std::sqrt(result.meanSquared);
  result.meanAbsolute = absolute / n;
  result.meanAbsolutePercent = meanAbsolutePercentError(residuals, y);
  return result;
}

}  // namespace engine
