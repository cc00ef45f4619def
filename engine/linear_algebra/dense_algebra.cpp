#include "engine/linear_algebra/dense_algebra.h"

#include <algorithm>
#include <cassert>

#include "engine/arithmetic/moments.h"
#include "engine/arithmetic/scaled_addition.h"

namespace engine {

Matrix identityMatrix(std::size_t size) {
  Matrix result(size, size);
  for (std::size_t i = 0; i < size; ++i) result(i, i) = 1.0;
  return result;
}

Matrix transposed(const Matrix& a) {
  Matrix result(a.columns, a.rows);
  for (std::size_t i = 0; i < a.rows; ++i) {
    for (std::size_t j = 0; j < a.columns; ++j) result(j, i) = a(i, j);
  }
  return result;
}

Matrix multiply(const Matrix& a, const Matrix& b) {
  assert(a.columns == b.rows);
  Matrix result(a.rows, b.columns);
  for (std::size_t i = 0; i < a.rows; ++i) {
    double* const target = result.values.data() + i * b.columns;
    for (std::size_t c = 0; c < a.columns; ++c) {
      addScaled(a(i, c), b.values.data() + c * b.columns, target, b.columns);
    }
  }
  return result;
}

Matrix multiplyTransposed(const Matrix& a, const Matrix& b) {
  return multiply(a, transposed(b));
}

void addScaled(double factor, const Matrix& b, Matrix& a) {
  assert(a.rows == b.rows && a.columns == b.columns);
  addScaled(factor, b.values.data(), a.values.data(), a.values.size());
}

Matrix blockOf(const Matrix& a, std::size_t row, std::size_t column, std::size_t rows, std::size_t columns) {
  assert(row + rows <= a.rows && column + columns <= a.columns);
  Matrix result(rows, columns);
  for (std::size_t i = 0; i < rows; ++i) {
    std::ranges::copy(a.row(row + i).subspan(column, columns), result.row(i).begin());
  }
  return result;
}

Matrix principalPart(const Matrix& a, std::span<const std::size_t> indices) {
  Matrix result(indices.size(), indices.size());
  for (std::size_t i = 0; i < indices.size(); ++i) {
    for (std::size_t j = 0; j < indices.size(); ++j) result(i, j) = a(indices[i], indices[j]);
  }
  return result;
}

double sumOfSquares(const Matrix& a) {
  return sumOfSquares(std::span(a.values));
}

}  // namespace engine
