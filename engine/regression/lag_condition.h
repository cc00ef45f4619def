// How far the regressors of every lag order are from being collinear.

#pragma once

#include <cstddef>
#include <vector>

#include "engine/arithmetic/planes.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/nested_regression.h"

namespace engine {

// Reciprocal 1-norm condition numbers, as reciprocalCondition in condition.h defines them, of the regressors of one lag
// order: of the centred ones, on which the digits of the computation depend, and of the original ones.
struct LagConditions {
  double centered = 0.0;
  double original = 0.0;
};

// One row of the inverse (X'X)^-1 of the original regressors: that of the constant, k values. All its other rows and
// columns are those of the centred regressors' inverse.
template <class Real>
std::vector<Real> originalConstantRow(const LagData& data, const NestedRegression<Real>& regression);

// X'X of the original regressors from Z'Z of the centred ones, element (i, j) for i <= j.
template <class Real>
Real originalCrossProduct(const LagData& data, const Planes<Real>& centered, std::size_t i, std::size_t j);

class LagConditionNumbers {
 public:
  // `crossProducts`: Z'Z of the centred regressors of MAXLAG, on and right of the diagonal.
  template <class Real>
  LagConditionNumbers(const LagData& data, const Planes<Real>& crossProducts);

  // Of the regressors that the regression has reached.
  template <class Real>
  LagConditions of(const LagData& data, const NestedRegression<Real>& regression) const;

  // Of a matrix scaled to a diagonal of ones, for the first 1, 2, .. regressors.
  struct Norms {
    std::vector<double> scales;  // square roots of the diagonal
    std::vector<double> values;
  };

 private:
  Norms centered_;
  Norms original_;
};

}  // namespace engine
