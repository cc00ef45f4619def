#include "engine/regression/residual_covariance.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace engine {
namespace {

constexpr double kSingularDeterminant = 1e-12;
constexpr double kSmallestScale = 1e-12;

// The sum of (e(i) - mean(i)) (e(j) - mean(j)).
double centeredProduct(const ResidualMoments& moments, std::size_t i, std::size_t j) {
  return moments.products(i, j) - moments.sums[i] * moments.sums[j] / static_cast<double>(moments.count);
}

bool isSquare(const std::vector<std::vector<double>>& matrix) {
  return std::ranges::all_of(matrix, [&](const auto& row) { return row.size() == matrix.size(); });
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
