// How far the regressors of every lag order are from being collinear.

#pragma once

#include <cstddef>
#include <vector>

#include "engine/arithmetic/planes.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/nested_regression.h"

namespace engine {

// S is the matrix of the k regressors' cross-products about their means, without the constant, scaled to a diagonal of
// ones, so that neither level nor unit of a regressor matters (van der Sluis 1969 on the scaling); of the
// cross-products themselves where there is no constant.
struct LagCondition {
  // 1 / (||S||_1 ||S^-1||_1), 1 for uncorrelated regressors. 0 when some regressor beside the constant is without
  // spread: it differs from its mean by the rounding of its values at most.
  double reciprocal = 1.0;
  // The least share of a regressor's sum of squares about its centre that is left about its mean: what the difference
  // of the two cost of the digits of S.
  double leftByMeans = 1.0;
};

class LagConditionNumbers {
 public:
  // `crossProducts`: Z'Z of the placed regressors of MAXLAG, on and right of the diagonal.
  template <class Real>
  LagConditionNumbers(const LagData& data, const Planes<Real>& crossProducts);

  // Of the regressors that the regression has reached.
  template <class Real>
  LagCondition of(const NestedRegression<Real>& regression) const;

 private:
  std::size_t first_;           // regressors before it are not part of S: the constant
  std::size_t withoutSpread_;   // the first regressor without spread
  std::vector<double> scales_;  // square roots of the diagonal, by regressor
  std::vector<double> norms_;   // ||S||_1 of the first 1, 2, .. regressors
  std::vector<double> leftByMeans_;
};

// Below k * 2.2e-16, k the number of regressors with the constant. Condition numbers of cross-products are the squares
// of the data's own, so that there the rounding of the data themselves leaves about 8 digits; and seldom is a pivot
// exactly zero for a column that is the sum of others.
bool isSingularCondition(double reciprocal, std::size_t k);

}  // namespace engine
