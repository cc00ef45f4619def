#include "engine/linear_algebra/lu.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <utility>

#include "engine/linear_algebra/products.h"

namespace engine {
namespace {

std::size_t findPivotRow(const Matrix& a, std::size_t column) {
  std::size_t best = column;
  for (std::size_t r = column + 1; r < a.rows; ++r) {
    if (std::abs(a(r, column)) > std::abs(a(best, column))) best = r;
  }
  return best;
}

void swapRows(Matrix& a, std::size_t first, std::size_t second) {
  if (first != second) std::ranges::swap_ranges(a.row(first), a.row(second));
}

void scaleBelowPivot(Matrix& a, std::size_t c) {
  const double reciprocal = 1.0 / a(c, c);
  for (std::size_t r = c + 1; r < a.rows; ++r) a(r, c) *= reciprocal;
}

// target -= factor * source, from element `first` on.
void subtractScaled(double factor, std::span<const double> source, std::span<double> target, std::size_t first) {
  for (std::size_t j = first; j < target.size(); ++j) target[j] -= factor * source[j];
}

Matrix permutedIdentity(const std::vector<std::size_t>& pivotRow) {
  Matrix result(pivotRow.size(), pivotRow.size());
  for (std::size_t i = 0; i < result.rows; ++i) result(i, i) = 1.0;
  for (std::size_t c = 0; c < pivotRow.size(); ++c) swapRows(result, c, pivotRow[c]);
  return result;
}

// Overwrites B with the solution of L B' = B; all columns advance together, row by row.
void solveUnitLower(const Matrix& lu, Matrix& b) {
  for (std::size_t c = 0; c < lu.rows; ++c) {
    for (std::size_t i = c + 1; i < lu.rows; ++i) subtractScaled(lu(i, c), b.row(c), b.row(i), 0);
  }
}

// Overwrites B with the solution of U B' = B.
void solveUpper(const Matrix& lu, Matrix& b) {
  for (std::size_t c = lu.rows; c-- > 0;) {
    for (double& value : b.row(c)) value /= lu(c, c);
    for (std::size_t i = 0; i < c; ++i) subtractScaled(lu(i, c), b.row(c), b.row(i), 0);
  }
}

}  // namespace

LuFactors factorizeLu(Matrix a) {
  assert(a.rows == a.columns);
  LuFactors factors;
  factors.pivotRow.resize(a.rows);
  for (std::size_t c = 0; c < a.rows; ++c) {
    const std::size_t pivotRow = findPivotRow(a, c);
    factors.pivotRow[c] = pivotRow;
    if (a(pivotRow, c) == 0.0) {
      factors.singular = true;
    } else {
      swapRows(a, c, pivotRow);
      scaleBelowPivot(a, c);
    }
    for (std::size_t r = c + 1; r < a.rows; ++r) subtractScaled(a(r, c), a.row(c), a.row(r), c + 1);
  }
  factors.lu = std::move(a);
  return factors;
}

bool invertMatrix(const Matrix& a, Matrix& result) {
  if (a.rows != a.columns) return false;
  const LuFactors factors = factorizeLu(a);
  if (factors.singular) return false;
  result = permutedIdentity(factors.pivotRow);
  solveUnitLower(factors.lu, result);
  solveUpper(factors.lu, result);
  return true;
}

bool invertCrossProduct(const Matrix& x, Matrix& result) {
  if (x.rows == 0 || x.columns == 0 || x.rows < x.columns) return false;
  return invertMatrix(crossProduct(x), result);
}

double determinant(const std::vector<std::vector<double>>& rows) {
  const std::size_t n = rows.size();
  Matrix copy(n, n);
  for (std::size_t i = 0; i < n; ++i) {
    if (rows[i].size() != n) return 0.0;
    std::ranges::copy(rows[i], copy.row(i).begin());
  }
  if (n == 0) return 0.0;
  const LuFactors factors = factorizeLu(std::move(copy));
  double result = 1.0;
  for (std::size_t c = 0; c < n; ++c) result *= factors.lu(c, c);
  for (std::size_t c = 0; c < n; ++c) {
    if (factors.pivotRow[c] != c) result = -result;
  }
  return result;
}

}  // namespace engine
