// One least-squares regression on many windows of the same rows, by adding and dropping rows.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "engine/linear_algebra/matrix.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {

struct WindowFit {
  Matrix coefficients;                         // K x m
  std::vector<std::vector<double>> residuals;  // K of the window's rows
  Matrix inverse;                              // (Z'Z)^-1, m x m
};

// K targets on m columns of n rows. Sums are kept in the coordinates of an orthonormal basis of the columns over all
// rows and for the targets' residuals over all rows: there the normal equations lose next to no digits, however
// collinear or far from zero the columns are.
class RollingRegression {
 public:
  // The columns must be linearly independent over all rows: see regular().
  RollingRegression(std::span<const std::vector<double>> columns, std::span<const std::vector<double>> targets);

  bool regular() const { return regular_; }

  // Moves the window to the rows first .. last - 1. Costs m^2 for each row that comes or goes.
  void moveTo(std::size_t first, std::size_t last);

  // Coefficients alone, K x m. Nothing when the columns are linearly dependent within the window.
  std::optional<Matrix> coefficients() const;

  // The same with residuals and (Z'Z)^-1.
  std::optional<WindowFit> fit() const;

 private:
  struct Solution {
    Matrix factor;  // of the sums of the basis
    Matrix shift;   // m x K: coefficients of the targets' residuals in the basis
  };
  std::optional<Solution> solve() const;
  Matrix inColumns(Matrix basisCoefficients) const;
  void addRow(std::size_t row, double sign);

  OrthonormalBasis basis_;
  Matrix triangle_;                        // R: columns = basis R
  Matrix whole_;                           // m x K: coefficients of the targets in the basis over all rows
  std::vector<std::vector<double>> rest_;  // K of n: the targets' residuals over all rows
  std::size_t columns_ = 0;
  std::size_t first_ = 0;
  std::size_t last_ = 0;
  bool regular_ = true;
  Matrix sums_;       // m x m, lower triangle
  Matrix crossSums_;  // m x K
};

}  // namespace engine
