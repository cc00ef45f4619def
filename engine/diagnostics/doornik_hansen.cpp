#include <algorithm>
#include <cmath>

#include "engine/arithmetic/moments.h"
#include "engine/diagnostics/normality_tests.h"
#include "engine/linear_algebra/orthonormal_basis.h"
#include "engine/linear_algebra/symmetric_eigen.h"

namespace engine {
namespace {

constexpr std::size_t kSmallestSample = 8;  // the transformed kurtosis is defined from here on

// D'Agostino (1970): the skewness of n normal values, transformed to N(0, 1).
double normalSkewness(double skewness, double n) {
  const double beta =
      3.0 * (n * n + 27.0 * n - 70.0) * (n + 1.0) * (n + 3.0) / ((n - 2.0) * (n + 5.0) * (n + 7.0) * (n + 9.0));
  const double omega2 = -1.0 + std::sqrt(2.0 * (beta - 1.0));
  const double delta = 1.0 / std::sqrt(0.5 * std::log(omega2));
  const double y = skewness * std::sqrt((omega2 - 1.0) * (n + 1.0) * (n + 3.0) / (12.0 * (n - 2.0)));
  return delta * std::asinh(y);
}

// Kurtosis given skewness, from a gamma distribution to N(0, 1) by Wilson & Hilferty's cube root.
double normalKurtosis(const Shape& shape, double n) {
  const double delta = (n - 3.0) * (n + 1.0) * (n * n + 15.0 * n - 4.0);
  const double a = (n - 2.0) * (n + 5.0) * (n + 7.0) * (n * n + 27.0 * n - 70.0) / (6.0 * delta);
  const double c = (n - 7.0) * (n + 5.0) * (n + 7.0) * (n * n + 2.0 * n - 5.0) / (6.0 * delta);
  const double k = (n + 5.0) * (n + 7.0) * (n * n * n + 37.0 * n * n + 11.0 * n - 313.0) / (12.0 * delta);
  const double squaredSkewness = shape.skewness * shape.skewness;
  const double alpha = a + squaredSkewness * c;
  const double chi = (shape.kurtosis - 1.0 - squaredSkewness) * 2.0 * k;
  return (std::cbrt(chi / (2.0 * alpha)) - 1.0 + 1.0 / (9.0 * alpha)) * std::sqrt(9.0 * alpha);
}

// C^-1/2 of the correlation matrix of columns of length 1. Empty when C is singular to rounding.
Matrix inverseRoot(const std::vector<std::vector<double>>& columns) {
  const SymmetricEigen eigen = symmetricEigen(columnProducts(columns, columns));
  const double smallest = static_cast<double>(columns.size()) * 2.2e-16;
  if (!(std::ranges::min(eigen.values) > smallest)) return {};
  Matrix root(columns.size(), columns.size());
  for (std::size_t i = 0; i < root.rows; ++i) {
    for (std::size_t j = 0; j < root.rows; ++j) {
      for (std::size_t l = 0; l < root.rows; ++l) {
        root(i, j) += eigen.vectors(i, l) * eigen.vectors(j, l) / std::sqrt(eigen.values[l]);
      }
    }
  }
  return root;
}

std::vector<double> combined(const std::vector<std::vector<double>>& columns, std::span<const double> weights) {
  std::vector<double> sum(columns.front().size());
  for (std::size_t j = 0; j < columns.size(); ++j) {
    for (std::size_t t = 0; t < sum.size(); ++t) sum[t] += weights[j] * columns[j][t];
  }
  return sum;
}

}  // namespace

std::optional<ChiSquaredTest> doornikHansen(ResidualList residuals) {
  if (residuals.empty() || residuals.front().size() < kSmallestSample) return std::nullopt;
  std::vector<std::vector<double>> columns = centredResiduals(residuals);
  for (std::vector<double>& one : columns) {
    const double length = std::sqrt(sumOfSquares(one));
    if (!(length > 0.0)) return std::nullopt;
    for (double& value : one) value /= length;
  }
  const Matrix root = inverseRoot(columns);
  if (root.rows == 0) return std::nullopt;
  const auto n = static_cast<double>(columns.front().size());
  double sum = 0.0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Shape shape = shapeOf(combined(columns, root.row(i)));
    sum += std::pow(normalSkewness(shape.skewness, n), 2) + std::pow(normalKurtosis(shape, n), 2);
  }
  return chiSquaredTest(sum, 2.0 * static_cast<double>(residuals.size()));
}

}  // namespace engine
