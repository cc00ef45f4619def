// An orthonormal basis of a growing set of columns: least squares without forming cross-products.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

// Gram-Schmidt, every projection done twice, which keeps the basis orthonormal to rounding (Giraud & Langou 2002:
// "twice is enough"). Columns hold n values each and may be in any units.
class OrthonormalBasis {
 public:
  // Adds the part of the column that is orthogonal to the basis, scaled to length 1. False, leaving the basis as it
  // was, when that part is not above n * 2.2e-16 of the column's length: it depends on the columns before it.
  bool append(std::span<const double> column);

  // Subtracts from the column its projection on the vectors first, first + 1, .. of the basis.
  void removeFrom(std::vector<double>& column, std::size_t first = 0) const;

  std::size_t size() const { return vectors_.size(); }
  const std::vector<double>& operator[](std::size_t i) const { return vectors_[i]; }

  // The coordinates of each column: element (i, j) is vector first + i times column j, for first + i < size().
  Matrix coordinates(std::span<const std::vector<double>> columns, std::size_t first = 0) const;

 private:
  std::vector<std::vector<double>> vectors_;
};

// x'y, added left to right.
double dotProduct(std::span<const double> x, std::span<const double> y);

// A'B for columns of n values: element (i, j) is the product of a[i] and b[j].
Matrix columnProducts(std::span<const std::vector<double>> a, std::span<const std::vector<double>> b);

}  // namespace engine
