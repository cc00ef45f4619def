// The series of a vector autoregression as its regressions see them: moved close to zero, and as windows of lags.

#pragma once

#include <cstdint>
#include <vector>

#include "engine/arithmetic/planes.h"

namespace engine {

// Refers to the series, which must outlive it and hold T values each, T > maxLag. Everything about the regressions is
// computed on x - c, with c near the mean of x: a level far from zero would take the digits of the cross-products. c
// has 24 bits, so that the difference is seldom rounded.
class LagData {
 public:
  using SeriesList = std::vector<std::vector<double>>;

  LagData(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t maxLag);

  std::size_t seriesCount() const { return endogenous_->size(); }  // K
  std::size_t exogenousCount() const { return exogenous_->size(); }
  std::size_t maxLag() const { return maxLag_; }
  std::size_t length() const { return endogenous_->front().size(); }  // T
  std::size_t rowCount() const { return length() - maxLag_; }         // n; row r is observation maxLag + r
  // Regressors of a model, in the order in which models of rising lag extend one another: the constant, the exogenous
  // series, then lag 1 of every endogenous series, lag 2, ...
  std::size_t regressorCount(std::size_t lag) const { return 1 + exogenousCount() + lag * seriesCount(); }

  const std::vector<double>& endogenous(std::size_t i) const { return (*endogenous_)[i]; }
  const std::vector<double>& exogenous(std::size_t i) const { return (*exogenous_)[i]; }
  double endogenousCenter(std::size_t i) const { return endogenousCenters_[i]; }
  double exogenousCenter(std::size_t i) const { return exogenousCenters_[i]; }
  // What was subtracted from regressor j of that order; 0 for the constant.
  double regressorCenter(std::size_t j) const;

  template <class Real>
  Real centered(std::size_t i, std::size_t t) const {
    return differenceOf<Real>((*endogenous_)[i][t], endogenousCenters_[i]);
  }
  template <class Real>
  Real centeredExogenous(std::size_t i, std::size_t t) const {
    return differenceOf<Real>((*exogenous_)[i][t], exogenousCenters_[i]);
  }

 private:
  const SeriesList* endogenous_;
  const SeriesList* exogenous_;
  std::size_t maxLag_;
  std::vector<double> endogenousCenters_;
  std::vector<double> exogenousCenters_;
};

}  // namespace engine
