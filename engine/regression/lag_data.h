// The series of a vector autoregression as its regressions see them: moved close to zero, in units near one, and as
// windows of lags.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/arithmetic/planes.h"

namespace engine {

using SeriesList = std::vector<std::vector<double>>;

// m = 1 + p K + the known columns, without the 1 when there is no constant.
inline std::int64_t regressorCount(std::size_t equations, std::size_t exogenous, std::int64_t lag,
                                   bool constant = true) {
  return static_cast<std::int64_t>(exogenous) + (constant ? 1 : 0) + lag * static_cast<std::int64_t>(equations);
}

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

// Centre and unit of the values, of which there is at least one; centred: false leaves the centre at 0.
Placement placementOf(std::span<const double> values, bool centred);

// A series seen so.
class PlacedSeries {
 public:
  // Placed by its values from `firstUsed` on; refers to the series.
  PlacedSeries(const std::vector<double>& series, std::size_t firstUsed, bool centred);

  const Placement& placement() const { return placement_; }
  template <class Real>
  Real at(std::size_t t) const {
    return scaledDifference<Real>(values_[t], placement_.center, power_);
  }
  // The values at times first .. first + count - 1, into one row of Planes<Real> from its start.
  template <class Real>
  void copy(std::size_t first, std::size_t count, Planes<Real>& target, std::size_t row) const {
    double* high = target.high(row);
    double* low = target.low(row);
    for (std::size_t t = 0; t < count; ++t) {
      const Real value = at<Real>(first + t);
      high[t] = rounded(value);
      if constexpr (Planes<Real>::kExtended) low[t] = value.lo;
    }
  }

 private:
  const double* values_;
  Placement placement_;
  double power_;  // 2^-exponent
};

// Refers to the series, which must outlive it and hold T values each, T > firstRow. Everything about the regressions is
// computed on (x - c) 2^-e: a level far from zero would take the digits of the cross-products, a unit far from one
// their range. c is the median of a sample of the rows that are used, so that no single value can move it, and a value
// of the series, so that differences from it are seldom rounded; 0 without a constant, which alone can take it up. e is
// the least that leaves every value below 1.
class LagData {
 public:
  LagData(const SeriesList& endogenous, const SeriesList& exogenous, const LagShape& shape);

  std::size_t seriesCount() const { return endogenous_.size(); }  // K
  std::size_t exogenousCount() const { return exogenous_.size(); }
  std::size_t maxLag() const { return shape_.maxLag; }
  std::size_t firstRow() const { return shape_.firstRow; }
  bool hasConstant() const { return shape_.constant; }
  std::size_t length() const { return length_; }                      // T
  std::size_t rowCount() const { return length_ - shape_.firstRow; }  // n; row r is observation firstRow + r
  std::size_t fixedCount() const { return regressorCount(0); }
  // Regressors of a model, in the order in which models of rising lag extend one another: the constant, the exogenous
  // series, then lag 1 of every endogenous series, lag 2, ...
  std::size_t regressorCount(std::size_t lag) const {
    return static_cast<std::size_t>(
        engine::regressorCount(seriesCount(), exogenousCount(), static_cast<std::int64_t>(lag), shape_.constant));
  }

  const PlacedSeries& endogenous(std::size_t i) const { return endogenous_[i]; }
  const PlacedSeries& exogenous(std::size_t i) const { return exogenous_[i]; }
  bool isFinite() const;  // every value that is used, less its centre
  // Of regressor j of that order; the constant has centre 0 and exponent 0.
  const Placement& placement(std::size_t j) const;
  // Where regressor j stands among the coefficients of an equation of `lag`: constant, lags, exogenous series.
  std::size_t coefficientIndex(std::size_t lag, std::size_t j) const;

 private:
  std::size_t length_;
  LagShape shape_;
  std::vector<PlacedSeries> endogenous_;
  std::vector<PlacedSeries> exogenous_;
};

}  // namespace engine
