// Ordinary least squares of a vector autoregression for every lag order, on shared sums.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "engine/regression/lag_condition.h"
#include "engine/regression/lag_cross_products.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/lag_residuals.h"
#include "engine/regression/nested_regression.h"

namespace engine {

// k coefficients an equation, in the order: constant, lag 1 of series 1..K, .., lag p of series 1..K, exogenous series.
struct LagFit {
  double reciprocalCondition = 0.0;               // of X'X scaled to unit diagonal, see condition.h
  std::vector<std::vector<double>> coefficients;  // per equation
  std::vector<std::vector<double>> residuals;     // per equation, n = T - maxLag values: actual minus fitted
  ResidualMoments moments;
};

// All orders are fitted on the rows t = MAXLAG .. T - 1, so that the cross-products of one order are a corner of those
// of the next: they are summed once, and factored once, in rising order. Where the regressors are so nearly collinear
// that fewer than about 12 digits would be left, the same steps are done again in twice the precision, and for small
// data they are done so from the start.
class LagRegression {
 public:
  using SeriesList = LagData::SeriesList;

  // Refers to the aligned series, which must outlive it.
  LagRegression(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t maxLag);

  // `lag` must not be smaller than in the call before, and T - maxLag must exceed the number of regressors. Nothing
  // when X'X has an exactly zero pivot; coefficients and residuals are left out when the condition is that of singular
  // regressors.
  std::optional<LagFit> fit(std::int32_t lag);

  // The diagonal of (X'X)^-1 of the order fitted last, in the order of the coefficients.
  std::vector<double> inverseDiagonal() const;

 private:
  template <class Real>
  struct Sums {
    Sums(const LagData& data, LagCrossProducts<Real> crossProducts);
    LagConditionNumbers conditions;
    NestedRegression<Real> regression;
  };

  bool extendPlain(std::size_t lag);
  void startExtended();
  bool extendExtended(std::size_t lag);
  std::optional<double> judgeByPivots(std::size_t lag) const;
  LagFit solution(std::size_t lag) const;

  LagData data_;
  std::size_t lag_ = 0;
  LagConditions conditions_;
  std::unique_ptr<Sums<double>> plain_;           // until digits are missing
  std::unique_ptr<Sums<DoubleDouble>> extended_;  // from then on
  Planes<DoubleDouble> extendedProducts_;         // the factorisation overwrites its own copy
};

}  // namespace engine
