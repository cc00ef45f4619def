#include "algo/least_squares.h"

#include <cassert>

#include "algo/condition.h"
#include "algo/lu.h"
#include "algo/moments.h"
#include "algo/products.h"

namespace varmodel {
namespace {

std::vector<std::vector<double>> columnsOf(const Matrix& matrix) {
  std::vector<std::vector<double>> columns;
  columns.reserve(matrix.columns);
  for (std::size_t j = 0; j < matrix.columns; ++j) columns.push_back(columnOf(matrix, j));
  return columns;
}

Matrix difference(const Matrix& a, const Matrix& b) {
  Matrix result(a.rows, a.columns);
  for (std::size_t i = 0; i < result.values.size(); ++i) result.values[i] = a.values[i] - b.values[i];
  return result;
}

void addTo(Matrix& target, const Matrix& increment) {
  for (std::size_t i = 0; i < target.values.size(); ++i) target.values[i] += increment.values[i];
}

// (X'X)^-1 X'Y, then the same map of what that leaves of Y: X'Y carries rounding errors of the size of the large sums
// in it, which an ill-conditioned inverse magnifies, and the sums of the small residuals do not.
Matrix solveNormalEquations(const Matrix& x, const Matrix& inverse, const Matrix& y) {
  Matrix coefficients = product(inverse, crossProduct(x, y));
  const Matrix remainder = difference(y, product(x, coefficients));
  addTo(coefficients, product(inverse, crossProduct(x, remainder)));
  return coefficients;
}

}  // namespace

std::optional<LeastSquaresFit> fitLeastSquares(const Matrix& x, const Matrix& y) {
  assert(x.rows == y.rows);
  LeastSquaresFit fit;
  Matrix crossProducts;
  if (!invertCrossProduct(x, fit.inverse, &crossProducts)) return std::nullopt;
  fit.reciprocalCondition = reciprocalCondition(crossProducts, fit.inverse);
  const Matrix coefficients = solveNormalEquations(x, fit.inverse, y);
  fit.coefficients = columnsOf(coefficients);
  fit.fitted = product(x, coefficients);
  fit.residuals = columnsOf(difference(y, fit.fitted));
  return fit;
}

double residualVariance(std::span<const double> residuals, std::int64_t k) {
  const std::int64_t degreesOfFreedom = std::ssize(residuals) - k;
  if (residuals.empty() || degreesOfFreedom == 0) return 0.0;
  return sumOfSquaredDeviations(residuals, mean(residuals)) / static_cast<double>(degreesOfFreedom);
}

}  // namespace varmodel
