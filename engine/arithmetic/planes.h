// Matrices of doubles or of numbers of twice the precision, laid out for the tile kernels.

#pragma once

#include <cstddef>
#include <type_traits>
#include <vector>

#include "engine/arithmetic/double_double.h"
#include "engine/arithmetic/kernels.h"

namespace engine {

// Row-major with rows padded to whole tiles; a new matrix, and all padding, holds zeros. Numbers of twice the precision
// keep their low parts in a second array of the same shape. `Real` is double or DoubleDouble.
template <class Real>
class Planes {
 public:
  static constexpr bool kExtended = std::is_same_v<Real, DoubleDouble>;

  Planes() = default;
  Planes(std::size_t rows, std::size_t columns)
      : rows_(rows), stride_(roundUpToTile(columns)), high_(rows * stride_), low_(kExtended ? rows * stride_ : 0) {}

  Real at(std::size_t i, std::size_t j) const {
    if constexpr (kExtended) {
      return Real(high_[i * stride_ + j], low_[i * stride_ + j]);
    } else {
      return high_[i * stride_ + j];
    }
  }
  void set(std::size_t i, std::size_t j, Real value) {
    high_[i * stride_ + j] = rounded(value);
    if constexpr (kExtended) low_[i * stride_ + j] = value.lo;
  }
  void setZero() {
    high_.assign(high_.size(), 0.0);
    low_.assign(low_.size(), 0.0);
  }

  std::size_t rows() const { return rows_; }
  std::size_t stride() const { return stride_; }
  double* high(std::size_t row) { return high_.data() + row * stride_; }
  const double* high(std::size_t row) const { return high_.data() + row * stride_; }
  double* low(std::size_t row) { return kExtended ? low_.data() + row * stride_ : nullptr; }
  const double* low(std::size_t row) const { return kExtended ? low_.data() + row * stride_ : nullptr; }

 private:
  std::size_t rows_ = 0;
  std::size_t stride_ = 0;
  std::vector<double> high_;
  std::vector<double> low_;
};

// Where the rows of an operand start; they may overlap, as the windows of a series do.
struct RowTable {
  std::vector<const double*> high;
  std::vector<const double*> low;  // empty for plain doubles

  template <class Real>
  void addRow(const Planes<Real>& planes, std::size_t row, std::size_t column = 0) {
    high.push_back(planes.high(row) + column);
    if constexpr (Planes<Real>::kExtended) low.push_back(planes.low(row) + column);
  }
};

template <class Real>
RowTable rowsOf(const Planes<Real>& planes) {
  RowTable table;
  for (std::size_t i = 0; i < planes.rows(); ++i) table.addRow(planes, i);
  return table;
}

}  // namespace engine
