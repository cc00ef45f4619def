// Forecasts of differences and growth rates, told in the unit of the series that they were made from.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/dynamics/forecast_errors.h"

namespace engine {

// y(t) = c ln x(t); c (x(t) - x(t-s)); c (ln x(t) - ln x(t-s)); 100 c (x(t)/x(t-s) - 1), c the factor and s the lag.
enum class Change { logarithm, difference, logDifference, percentage };

struct LevelScale {
  Change change = Change::difference;
  double factor = 1.0;
  std::size_t lag = 1;              // s; without a meaning for the logarithm
  std::vector<double> before = {};  // the last s values of x, oldest first; none for the logarithm
};

// The path x of a path y, H values; of a drawn path as of a forecast.
std::vector<double> levelPath(std::span<const double> y, const LevelScale& scale);

// H x H: the covariance of the errors of one series at all horizons.
Matrix seriesCovariance(const ForecastErrors& errors, std::size_t series);

struct LevelForecast {
  std::vector<double> values;   // levelPath() of the forecast
  std::vector<double> spreads;  // standard errors of x; of ln x where the limits are products
  bool multiplicative = false;

  struct Limits {
    std::vector<double> lower;
    std::vector<double> upper;
  };
  // values -+ t spreads, or values times e^(-+ t spreads), t from Student's t. Needs spreads.
  Limits limits(double degreesOfFreedom, double level) const;
};

// The sum of the forecasts up to a horizon has the sum of their covariances (all of them, not the variances alone) as
// its variance, which is exact for differences and, as the variance of ln x, for both kinds with a logarithm; there the
// value is the median of x, e^(variance/2) below its mean when errors are normal. Percentages: ln x sums up
// ln(1 + y/(100 c)), whose variance is that of its linear part at the forecast (delta method); spreads are NaN from the
// first period on whose forecast is a fall by 100 % or more.
LevelForecast levelForecast(std::span<const double> y, const Matrix& covariance, const LevelScale& scale);

}  // namespace engine
