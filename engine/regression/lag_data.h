// The series of a vector autoregression as its regressions see them: moved close to zero, in units near one, and as
// windows of lags.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/arithmetic/planes.h"

namespace engine {

using SeriesList = std::vector<std::vector<double>>;

// Which regressions are meant: those of lag 0..maxLag on the rows t = firstRow .. T - 1, firstRow >= maxLag.
struct LagShape {
  std::size_t maxLag = 1;
  std::size_t firstRow = 1;
  bool constant = true;
};

// x is seen as (x - center) 2^-exponent.
struct Placement {
  double center = 0.0;
  int exponent = 0;
  bool finite = true;  // every x - center is
};

// Refers to the series, which must outlive it and hold T values each, T > firstRow. Everything about the regressions is
// computed on (x - c) 2^-e: a level far from zero would take the digits of the cross-products, a unit far from one
// their range. c is the median of a sample of the rows that are used, so that no single value can move it, and a value
// of the series, so that differences from it are seldom rounded; 0 without a constant, which alone can take it up. e is
// the least that leaves every value below 1.
class LagData {
 public:
  LagData(const SeriesList& endogenous, const SeriesList& exogenous, const LagShape& shape);

  std::size_t seriesCount() const { return endogenous_->size(); }  // K
  std::size_t exogenousCount() const { return exogenous_->size(); }
  std::size_t maxLag() const { return shape_.maxLag; }
  std::size_t firstRow() const { return shape_.firstRow; }
  bool hasConstant() const { return shape_.constant; }
  std::size_t length() const { return endogenous_->front().size(); }   // T
  std::size_t rowCount() const { return length() - shape_.firstRow; }  // n; row r is observation firstRow + r
  std::size_t fixedCount() const { return exogenousCount() + (shape_.constant ? 1 : 0); }  // regressors of lag 0
  // Regressors of a model, in the order in which models of rising lag extend one another: the constant, the exogenous
  // series, then lag 1 of every endogenous series, lag 2, ...
  std::size_t regressorCount(std::size_t lag) const { return fixedCount() + lag * seriesCount(); }

  bool isFinite() const;  // every value that is used, less its centre
  const Placement& endogenousPlacement(std::size_t i) const { return endogenousPlacements_[i]; }
  // Of regressor j of that order; the constant has centre 0 and exponent 0.
  const Placement& placement(std::size_t j) const;
  // Where regressor j stands among the coefficients of an equation of `lag`: constant, lags, exogenous series.
  std::size_t coefficientIndex(std::size_t lag, std::size_t j) const;

  template <class Real>
  Real centered(std::size_t i, std::size_t t) const {
    return scaledDifference<Real>((*endogenous_)[i][t], endogenousPlacements_[i].center, endogenousPowers_[i]);
  }
  template <class Real>
  Real centeredExogenous(std::size_t i, std::size_t t) const {
    return scaledDifference<Real>((*exogenous_)[i][t], fixedPlacements_[i + (shape_.constant ? 1 : 0)].center,
                                  exogenousPowers_[i]);
  }

 private:
  const SeriesList* endogenous_;
  const SeriesList* exogenous_;
  LagShape shape_;
  std::vector<Placement> endogenousPlacements_;
  std::vector<Placement> fixedPlacements_;  // the constant's, if there is one, then those of the exogenous series
  std::vector<double> endogenousPowers_;    // 2^-exponent
  std::vector<double> exogenousPowers_;
};

// Centre and unit of the values, of which there is at least one; centred: false leaves the centre at 0.
Placement placementOf(std::span<const double> values, bool centred);

}  // namespace engine
