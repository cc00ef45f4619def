#include "engine/diagnostics/standardised_residuals.h"

#include <algorithm>

#include "engine/arithmetic/moments.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

Matrix rowsOf(ResidualList residuals) {
  Matrix result(residuals.size(), residuals.front().size());
  for (std::size_t i = 0; i < result.rows; ++i) std::ranges::copy(residuals[i], result.row(i).begin());
  return result;
}

}  // namespace

std::vector<std::vector<double>> centredResiduals(ResidualList residuals) {
  std::vector<std::vector<double>> result(residuals.begin(), residuals.end());
  for (std::vector<double>& one : result) {
    const double center = mean(one);
    for (double& value : one) value -= center;
  }
  return result;
}

std::optional<std::vector<std::vector<double>>> choleskyStandardised(ResidualList residuals) {
  if (residuals.empty() || residuals.front().empty()) return std::nullopt;
  Matrix products = columnProducts(residuals, residuals);
  for (double& value : products.values) value /= static_cast<double>(residuals.front().size());
  const std::optional<Matrix> factor = choleskyFactor(products);
  if (!factor) return std::nullopt;
  Matrix values = rowsOf(residuals);
  solveLower(*factor, values);
  std::vector<std::vector<double>> result;
  for (std::size_t i = 0; i < values.rows; ++i) result.emplace_back(values.row(i).begin(), values.row(i).end());
  return result;
}

}  // namespace engine
