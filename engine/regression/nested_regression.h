// Least squares of growing lag order on one set of cross-products.

#pragma once

#include <span>

#include "engine/arithmetic/planes.h"

namespace engine {

// Regressions of K targets on the first k of an ordered set of regressors, k rising: Z'Z = U'U (Cholesky) is extended
// row by row, and with it U'^-1, the inverse U^-1 U'^-1 and the coefficients U^-1 (U'^-1 Z'Y), so that all orders
// together cost what the largest one costs. Golub & Van Loan, Matrix Computations, section 4.2; the rows of U' ^-1 that
// an order adds are what bordering adds to the inverse.
template <class Real>
class NestedRegression {
 public:
  // Takes the cross-products over: rows of regressors, on and right of the diagonal, then the columns of targets from
  // `targetColumn` on.
  NestedRegression(Planes<Real> crossProducts, std::size_t targetColumn, std::size_t targetCount);

  NestedRegression(const NestedRegression&) = delete;  // it holds pointers to its own rows
  NestedRegression& operator=(const NestedRegression&) = delete;

  // Extends the regressions to the first `count` regressors. False when a pivot is not positive: the regressors are
  // linearly dependent in this precision; nothing can then be made of the object.
  bool extendTo(std::size_t count);

  std::size_t regressorCount() const { return count_; }
  Real inverse(std::size_t i, std::size_t j) const { return i <= j ? inverse_.at(i, j) : inverse_.at(j, i); }
  // Row i of the inverse, rounded; only its elements from i on are set.
  std::span<const double> inverseRow(std::size_t i) const { return {inverse_.high(i), count_}; }
  const Planes<Real>& coefficients() const { return coefficients_; }  // k x K
  // What the regressions explain of Y'Y, K x K: the rest of it are the products of the residuals.
  const Planes<Real>& explained() const { return explained_; }

 private:
  bool factorRows(std::size_t first, std::size_t height);
  void invertRows(std::size_t first, std::size_t height);
  void extendInverse(std::size_t first, std::size_t last);
  void extendCoefficients(std::size_t first, std::size_t last);
  void extendExplained(std::size_t first, std::size_t last);

  Planes<Real> factor_;         // U on and right of the diagonal, U'^-1 Z'Y in the
                                // columns of targets
  Planes<Real> inverseFactor_;  // U'^-1, lower triangular
  Planes<Real> inverse_;        // on and right of the diagonal
  Planes<Real> coefficients_;
  Planes<Real> explained_;
  Planes<Real> panel_;
  RowTable factorRows_;
  RowTable inverseFactorRows_;
  RowTable targetRows_;
  std::size_t targetColumn_;
  std::size_t targetCount_;
  std::size_t count_ = 0;
};

extern template class NestedRegression<double>;
extern template class NestedRegression<DoubleDouble>;

}  // namespace engine
