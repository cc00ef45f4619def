// The dense matrix of the estimation engine.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace engine {

// Dense and row-major: element (i, j) is values[i * columns + j]. A new matrix holds zeros.
struct Matrix {
  Matrix() = default;
  Matrix(std::size_t rowCount, std::size_t columnCount)
      : rows(rowCount), columns(columnCount), values(rowCount * columnCount) {}

  double& operator()(std::size_t i, std::size_t j) { return values[i * columns + j]; }
  double operator()(std::size_t i, std::size_t j) const { return values[i * columns + j]; }
  std::span<double> row(std::size_t i) { return {values.data() + i * columns, columns}; }
  std::span<const double> row(std::size_t i) const { return {values.data() + i * columns, columns}; }

  std::size_t rows = 0;
  std::size_t columns = 0;
  std::vector<double> values;
};

// Column j as a contiguous vector of `rows` values.
inline std::vector<double> columnOf(const Matrix& matrix, std::size_t j) {
  std::vector<double> column(matrix.rows);
  for (std::size_t i = 0; i < matrix.rows; ++i) column[i] = matrix(i, j);
  return column;
}

}  // namespace engine
