// Has a series a unit root? Two tests with opposite null hypotheses.

#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace engine {

enum class UnitRootTerms { constant, constantAndTrend };

struct AugmentedDickeyFuller {
  double statistic = 0.0;  // Student's t of the lagged level
  double pValue = 1.0;
  std::size_t lags = 0;  // of the difference
  std::size_t rows = 0;  // that the regression uses
};

// Dickey & Fuller (1979), null hypothesis: a unit root. The difference is regressed on the terms, its own lags and the
// lagged level, residual variance with n - m. The number of lags has the smallest AIC among 0..12 (n / 100)^(1/4),
// rounded up (Schwert 1989) and at most n / 2 less the terms less 1, all on the rows of the longest; the test then uses
// every row it can. The p-value is MacKinnon's (1994) approximation of the asymptotic distribution. Any units and any
// level. Nothing for a series that does not vary or that its own past explains without error, nor below 4 values (6
// with a trend).
std::optional<AugmentedDickeyFuller> augmentedDickeyFuller(std::span<const double> x, UnitRootTerms terms);

// MacKinnon's approximation alone: 0 below and 1 above the range of his tables.
double mackinnonTail(double statistic, UnitRootTerms terms);

struct Kpss {
  // Where the table of critical values ends: the p-value is at least or at most that.
  static constexpr double kLargestP = 0.10;
  static constexpr double kSmallestP = 0.01;

  double statistic = 0.0;
  double pValue = kLargestP;
  std::size_t lags = 0;  // of the long-run variance
};

// Kwiatkowski, Phillips, Schmidt & Shin (1992), null hypothesis: stationary around a level (or a trend). The long-run
// variance has Bartlett weights and the divisor n; its number of lags is that which Hobijn, Franses & Ooms (1998)
// choose from the data. The p-value is read between the critical values of the 1992 paper. Any units and any level.
// Nothing for a series that does not vary around the terms.
std::optional<Kpss> kpss(std::span<const double> x, UnitRootTerms terms);

}  // namespace engine
