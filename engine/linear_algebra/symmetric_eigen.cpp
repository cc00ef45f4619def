#include "engine/linear_algebra/symmetric_eigen.h"

#include <cassert>
#include <cmath>
#include <limits>

#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

constexpr int kMostSweeps = 60;  // convergence is quadratic: about ten are ever needed

// Rotates the columns p and q: (x, y) := (c x - s y, s x + c y).
void rotateColumns(Matrix& a, std::size_t p, std::size_t q, double c, double s) {
  for (std::size_t i = 0; i < a.rows; ++i) {
    const double x = a(i, p);
    const double y = a(i, q);
    a(i, p) = c * x - s * y;
    a(i, q) = s * x + c * y;
  }
}

void rotateRows(Matrix& a, std::size_t p, std::size_t q, double c, double s) {
  for (std::size_t j = 0; j < a.columns; ++j) {
    const double x = a(p, j);
    const double y = a(q, j);
    a(p, j) = c * x - s * y;
    a(q, j) = s * x + c * y;
  }
}

// Makes the elements (p, q) and (q, p) zero; false when they are already, to rounding.
bool rotateAway(Matrix& a, Matrix& vectors, std::size_t p, std::size_t q) {
  const double scale = std::sqrt(std::abs(a(p, p))) * std::sqrt(std::abs(a(q, q)));
  if (std::abs(a(p, q)) <= 0.5 * std::numeric_limits<double>::epsilon() * scale) return false;
  const double ratio = (a(q, q) - a(p, p)) / (2.0 * a(p, q));
  const double tangent = std::copysign(1.0, ratio) / (std::abs(ratio) + std::hypot(1.0, ratio));
  const double cosine = 1.0 / std::hypot(1.0, tangent);
  const double sine = cosine * tangent;
  rotateColumns(a, p, q, cosine, sine);
  rotateRows(a, p, q, cosine, sine);
  a(p, q) = a(q, p) = 0.0;
  rotateColumns(vectors, p, q, cosine, sine);
  return true;
}

bool sweep(Matrix& a, Matrix& vectors) {
  bool changed = false;
  for (std::size_t p = 0; p < a.rows; ++p) {
    for (std::size_t q = p + 1; q < a.rows; ++q) changed = rotateAway(a, vectors, p, q) || changed;
  }
  return changed;
}

}  // namespace

SymmetricEigen symmetricEigen(Matrix a) {
  assert(a.rows == a.columns);
  SymmetricEigen result{{}, identityMatrix(a.rows)};
  for (int count = 0; count < kMostSweeps && sweep(a, result.vectors); ++count) {
  }
  for (std::size_t i = 0; i < a.rows; ++i) result.values.push_back(a(i, i));
  return result;
}

}  // namespace engine
