// Ordinary least squares of a vector autoregression for every lag order, on shared sums.

#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "engine/regression/lag_condition.h"
#include "engine/regression/lag_cross_products.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/lag_residuals.h"
#include "engine/regression/nested_regression.h"
#include "engine/regression/original_units.h"

namespace engine {

// k coefficients an equation, in the order: constant, lag 1 of series 1..K, .., lag p of series 1..K, exogenous series.
struct LagFit {
  bool singular = false;  // the regressors are collinear, see lag_condition.h: all but the next is empty
  double reciprocalCondition = 1.0;
  SeriesList coefficients;  // per equation
  SeriesList residuals;     // per equation, n values: actual minus fitted; may be empty where they were not asked for
  ResidualMoments moments;
};

// All orders are fitted on the rows t = firstRow .. T - 1, so that the cross-products of one order are a corner of
// those of the next: they are summed once, and factored once, in rising order. Where that leaves fewer than about 12
// digits of the coefficients or the residuals, because regressors are nearly collinear or residuals small, the same
// steps are done again in twice the precision; for small data they are done so from the start.
class LagRegression {
 public:
  // Refers to the aligned series, which must outlive it; T - firstRow must exceed the number of regressors of maxLag.
  LagRegression(const SeriesList& endogenous, const SeriesList& exogenous, const LagShape& shape);

  const LagData& data() const { return data_; }
  bool inTwicePrecision() const { return plain_ == nullptr; }

  // `lag` must not be smaller than in the call before. Without residuals their moments come from the cross-products
  // alone, where that leaves about 12 digits.
  LagFit fit(std::size_t lag, bool withResiduals = true);

  // (Z'Z)^-1 of the order fitted last, in the order of the coefficients.
  InverseDiagonal inverseDiagonal() const;
  Matrix inverse() const;

 private:
  template <class Real>
  struct Sums {
    Sums(const LagData& data, LagCrossProducts<Real> crossProducts);
    Matrix targets;  // Y'Y
    LagConditionNumbers conditions;
    NestedRegression<Real> regression;
  };

  bool fitPlain(std::size_t lag, bool withResiduals, LagFit& fit);
  bool putMomentsFromProducts(LagFit& fit) const;
  LagFit fitExtended(std::size_t lag);

  LagData data_;
  std::size_t lag_ = 0;
  std::unique_ptr<Sums<double>> plain_;           // until digits are missing
  std::unique_ptr<Sums<DoubleDouble>> extended_;  // from then on
};

}  // namespace engine
