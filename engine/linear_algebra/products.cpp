#include "engine/linear_algebra/products.h"

#include <algorithm>
#include <cassert>

namespace engine {
namespace {

// Rows that pass over one row of the result before it leaves the first-level cache.
constexpr std::size_t kRowBlock = 8;

// target[j] += factor * source[j] for j in [first, last).
void addScaled(double factor, const double* source, double* target, std::size_t first, std::size_t last) {
  for (std::size_t j = first; j < last; ++j) target[j] += factor * source[j];
}

// Adds A'B over all rows to `result`; with `upperOnly`, the elements left of the diagonal are not touched.
void accumulateCrossProduct(const Matrix& a, const Matrix& b, bool upperOnly, Matrix& result) {
  for (std::size_t blockStart = 0; blockStart < a.rows; blockStart += kRowBlock) {
    const std::size_t blockEnd = std::min(blockStart + kRowBlock, a.rows);
    for (std::size_t i = 0; i < a.columns; ++i) {
      for (std::size_t r = blockStart; r < blockEnd; ++r) {
        addScaled(a(r, i), b.row(r).data(), result.row(i).data(), upperOnly ? i : 0, b.columns);
      }
    }
  }
}

}  // namespace

Matrix crossProduct(const Matrix& a, const Matrix& b) {
  assert(a.rows == b.rows);
  Matrix result(a.columns, b.columns);
  accumulateCrossProduct(a, b, false, result);
  return result;
}

Matrix crossProduct(const Matrix& x) {
  Matrix result(x.columns, x.columns);
  accumulateCrossProduct(x, x, true, result);
  for (std::size_t i = 1; i < x.columns; ++i) {
    for (std::size_t j = 0; j < i; ++j) result(i, j) = result(j, i);
  }
  return result;
}

}  // namespace engine
