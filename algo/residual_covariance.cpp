#include "algo/residual_covariance.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <span>
#include <stdexcept>

#include "algo/moments.h"

namespace varmodel {
namespace {

constexpr double kSingularDeterminant = 1e-12;
constexpr double kSmallestScale = 1e-12;

double covariance(std::span<const double> x, double meanX, std::span<const double> y, double meanY) {
  assert(x.size() == y.size());
  double sum = 0.0;
  for (std::size_t t = 0; t < x.size(); ++t) sum += (x[t] - meanX) * (y[t] - meanY);
  return sum / static_cast<double>(x.size());
}

bool isSquare(const std::vector<std::vector<double>>& matrix) {
  return std::ranges::all_of(matrix, [&](const auto& row) { return row.size() == matrix.size(); });
}

double correlation(double covariance, double scale) {
  return scale > kSmallestScale ? std::clamp(covariance / scale, -1.0, 1.0) : 0.0;
}

}  // namespace

std::vector<std::vector<double>> residualCovarianceMatrix(const std::vector<std::vector<double>>& residuals) {
  if (residuals.empty() || residuals.front().empty()) {
    throw std::invalid_argument("Cannot compute covariance with no residual values");
  }
  const std::size_t count = residuals.size();
  std::vector<double> means;
  for (const std::vector<double>& series : residuals) means.push_back(mean(series));
  std::vector<std::vector<double>> result(count, std::vector<double>(count));
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i; j < count; ++j) {
      result[i][j] = result[j][i] = covariance(residuals[i], means[i], residuals[j], means[j]);
    }
  }
  return result;
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

}  // namespace varmodel
