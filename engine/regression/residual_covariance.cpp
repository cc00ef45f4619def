#include "engine/regression/residual_covariance.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "engine/linear_algebra/lu.h"
#include "engine/regression/precision_limits.h"

namespace engine {
namespace {

constexpr double kSingularDeterminant = 1e-12;
constexpr double kSmallestScale = 1e-12;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The sum of (e(i) - mean(i)) (e(j) - mean(j)).
double centeredProduct(const ResidualMoments& moments, std::size_t i, std::size_t j) {
  return moments.products(i, j) - moments.sums[i] * moments.sums[j] / static_cast<double>(moments.count);
}

bool isSquare(const std::vector<std::vector<double>>& matrix) {
  return std::ranges::all_of(matrix, [&](const auto& row) { return row.size() == matrix.size(); });
}

// Not a number where a variance is 0.
std::vector<std::vector<double>> scaledToUnitDiagonal(std::vector<std::vector<double>> covariance) {
  std::vector<double> roots;
  for (std::size_t i = 0; i < covariance.size(); ++i) roots.push_back(std::sqrt(covariance[i][i]));
  for (std::size_t i = 0; i < covariance.size(); ++i) {
    for (std::size_t j = 0; j < covariance.size(); ++j) covariance[i][j] = covariance[i][j] / roots[i] / roots[j];
  }
  return covariance;
}

// Not a number when some element is not.
double oneNorm(const Matrix& symmetric) {
  double largest = 0.0;
  for (std::size_t i = 0; i < symmetric.rows; ++i) {
    double sum = 0.0;
    for (const double value : symmetric.row(i)) sum += std::abs(value);
    largest = sum <= largest ? largest : sum;
  }
  return largest;
}

double correlation(double covariance, double scale) {
  return scale > kSmallestScale ? std::clamp(covariance / scale, -1.0, 1.0) : 0.0;
}

}  // namespace

std::vector<std::vector<double>> residualCovarianceMatrix(const ResidualMoments& moments) {
  const std::size_t count = moments.sums.size();
  if (count == 0 || moments.count == 0) {
    throw std::invalid_argument("Cannot compute covariance with no residual values");
  }
  std::vector<std::vector<double>> result(count, std::vector<double>(count));
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i; j < count; ++j) {
      result[i][j] = result[j][i] = centeredProduct(moments, i, j) / static_cast<double>(moments.count);
    }
  }
  return result;
}

double residualVariance(const ResidualMoments& moments, std::size_t i, std::int64_t k) {
  const std::int64_t degreesOfFreedom = static_cast<std::int64_t>(moments.count) - k;
  if (moments.count == 0 || degreesOfFreedom == 0) return 0.0;
  return centeredProduct(moments, i, i) / static_cast<double>(degreesOfFreedom);
}

// Out of range, ln det V = ln det R + sum of ln V(i,i), with the correlations R.
CovarianceDeterminant covarianceDeterminant(const std::vector<std::vector<double>>& covariance) {
  const double value = determinant(covariance);
  if (std::isnormal(value)) return {value, value > 0.0 ? std::log(value) : kInfinity};
  double logarithm = 0.0;
  for (std::size_t i = 0; i < covariance.size(); ++i) logarithm += std::log(covariance[i][i]);
  const double scaledValue = determinant(scaledToUnitDiagonal(covariance));
  return {value, scaledValue > 0.0 ? logarithm + std::log(scaledValue) : kInfinity};
}

double correlationCondition(const std::vector<std::vector<double>>& covariance) {
  const std::vector<std::vector<double>> rows = scaledToUnitDiagonal(covariance);
  Matrix scaled(rows.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) std::ranges::copy(rows[i], scaled.row(i).begin());
  Matrix inverse;
  if (!invertMatrix(scaled, inverse)) return 0.0;
  const double condition = oneNorm(scaled) * oneNorm(inverse);
  return condition > 0.0 ? 1.0 / condition : 0.0;
}

bool isSingularCovariance(const std::vector<std::vector<double>>& covariance) {
  return !(correlationCondition(covariance) >= static_cast<double>(covariance.size()) * kLeastCondition);
}

bool isSingularDeterminant(double determinant) {
  return std::abs(determinant) < kSingularDeterminant;
}

std::vector<std::vector<double>> correlationFromCovariance(const std::vector<std::vector<double>>& covariance) {
  if (!isSquare(covariance)) return {};
  const std::size_t count = covariance.size();
  std::vector<double> deviations;
  for (std::size_t i = 0; i < count; ++i) {
    if (covariance[i][i] < 0.0) return {};
    deviations.push_back(std::sqrt(covariance[i][i]));
  }
  std::vector<std::vector<double>> result(count, std::vector<double>(count, 1.0));
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = 0; j < count; ++j) {
      if (i != j) result[i][j] = correlation(covariance[i][j], deviations[i] * deviations[j]);
    }
  }
  return result;
}

}  // namespace engine
