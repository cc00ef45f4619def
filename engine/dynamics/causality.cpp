#include "engine/dynamics/causality.h"

#include "engine/dynamics/fit_parts.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

std::vector<std::size_t> columnsOf(const FittedVar& fit, std::span<const std::size_t> series, std::size_t lags) {
  std::vector<std::size_t> columns;
  for (std::size_t lag = 0; lag < lags; ++lag) {
    for (const std::size_t one : series) columns.push_back(firstLagColumn(fit) + lag * seriesCount(fit) + one);
  }
  return columns;
}

// The coefficients of the columns in the equations, one row a column.
Matrix selected(const Matrix& coefficients, std::span<const std::size_t> equations,
                std::span<const std::size_t> columns) {
  Matrix result(columns.size(), equations.size());
  for (std::size_t j = 0; j < columns.size(); ++j) {
    for (std::size_t i = 0; i < equations.size(); ++i) result(j, i) = coefficients(equations[i], columns[j]);
  }
  return result;
}

std::vector<std::size_t> allBut(std::size_t count, std::size_t left) {
  std::vector<std::size_t> others;
  for (std::size_t i = 0; i < count; ++i) {
    if (i != left) others.push_back(i);
  }
  return others;
}

}  // namespace

std::optional<FTest> exclusionTest(const FittedVar& fit, std::span<const std::size_t> causes,
                                   std::span<const std::size_t> effects, std::size_t testedLags,
                                   double denominatorDegrees) {
  const std::vector<std::size_t> columns = columnsOf(fit, causes, testedLags);
  const auto inverse = choleskyFactor(principalPart(fit.inverse, columns));
  const auto covariance = choleskyFactor(principalPart(residualCovariance(fit), effects));
  if (columns.empty() || !inverse || !covariance) return std::nullopt;
  Matrix whitened = selected(fit.coefficients, effects, columns);
  solveLower(*inverse, whitened);
  whitened = transposed(whitened);
  solveLower(*covariance, whitened);
  const auto numerator = static_cast<double>(columns.size() * effects.size());
  return fTest(sumOfSquares(whitened) / numerator, numerator, denominatorDegrees);
}

GrangerCausality grangerCausality(const FittedVar& fit, std::size_t testedLags) {
  const std::size_t k = seriesCount(fit);
  const double degrees = residualDegrees(fit);
  GrangerCausality result{std::vector(k, std::vector<std::optional<FTest>>(k)), {}, {}};
  for (std::size_t one = 0; one < k; ++one) {
    const std::span<const std::size_t> self(&one, 1);
    const std::vector<std::size_t> others = allBut(k, one);
    for (const std::size_t effect : others) {
      result.pairs[one][effect] = exclusionTest(fit, self, std::span(&effect, 1), testedLags, degrees);
    }
    result.othersOnEach.push_back(exclusionTest(fit, others, self, testedLags, degrees));
    result.eachOnOthers.push_back(exclusionTest(fit, self, others, testedLags, static_cast<double>(k) * degrees));
  }
  return result;
}

std::optional<ChiSquaredTest> instantaneousCausality(const FittedVar& fit, std::size_t series) {
  const std::size_t k = seriesCount(fit);
  const std::vector<std::size_t> others = allBut(k, series);
  if (others.empty()) return std::nullopt;
  const Matrix covariance = likelihoodCovariance(fit);
  const auto factor = choleskyFactor(principalPart(covariance, others));
  if (!factor) return std::nullopt;
  Matrix covariances = selected(covariance, std::span(&series, 1), others);
  solveLower(*factor, covariances);
  const double rSquare = sumOfSquares(covariances) / covariance(series, series);
  return chiSquaredTest(static_cast<double>(rowCount(fit)) * rSquare / (1.0 + rSquare), static_cast<double>(k - 1));
}

}  // namespace engine
