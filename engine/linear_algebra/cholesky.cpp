#include "engine/linear_algebra/cholesky.h"

#include <cassert>
#include <cmath>
#include <limits>

#include "engine/arithmetic/scaled_addition.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/products.h"

namespace engine {
namespace {

// a(i, j) less the products of the rows i and j of L left of column j.
double remainderOf(const Matrix& a, const Matrix& l, std::size_t i, std::size_t j) {
  double value = a(i, j);
  for (std::size_t c = 0; c < j; ++c) value -= l(i, c) * l(j, c);
  return value;
}

}  // namespace

std::optional<Matrix> choleskyFactor(const Matrix& a) {
  assert(a.rows == a.columns);
  const double tolerance = static_cast<double>(a.rows) * std::numeric_limits<double>::epsilon();
  Matrix l(a.rows, a.rows);
  for (std::size_t j = 0; j < a.rows; ++j) {
    const double pivot = remainderOf(a, l, j, j);
    if (!(pivot > tolerance * a(j, j)) || !std::isfinite(pivot)) return std::nullopt;
    l(j, j) = std::sqrt(pivot);
    for (std::size_t i = j + 1; i < a.rows; ++i) l(i, j) = remainderOf(a, l, i, j) / l(j, j);
  }
  return l;
}

void solveLower(const Matrix& l, Matrix& b) {
  assert(l.rows == b.rows);
  for (std::size_t i = 0; i < l.rows; ++i) {
    for (std::size_t c = 0; c < i; ++c) addScaled(-l(i, c), b.row(c).data(), b.row(i).data(), b.columns);
    for (double& value : b.row(i)) value /= l(i, i);
  }
}

void solveLowerTransposed(const Matrix& l, Matrix& b) {
  assert(l.rows == b.rows);
  for (std::size_t i = l.rows; i-- > 0;) {
    for (std::size_t c = i + 1; c < l.rows; ++c) addScaled(-l(c, i), b.row(c).data(), b.row(i).data(), b.columns);
    for (double& value : b.row(i)) value /= l(i, i);
  }
}

Matrix inverseFromCholesky(const Matrix& l) {
  Matrix inverse = identityMatrix(l.rows);
  solveLower(l, inverse);
  return crossProduct(inverse);
}

}  // namespace engine
