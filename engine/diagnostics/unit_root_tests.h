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
// lagged level; the number of lags has the smallest AIC among 0..12 (n / 100)^(1/4), rounded up (Schwert 1989), all on
// the rows of the longest, and the test then uses every row it can. The p-value is MacKinnon's (1994) approximation of
// the asymptotic distribution. Nothing for a series that does not vary or has fewer than about 10 values.
std::optional<AugmentedDickeyFuller> augmentedDickeyFuller(std::span<const double> x, UnitRootTerms terms);

// MacKinnon's approximation alone: 0 below and 1 above the range of his tables.
double mackinnonTail(double statistic, UnitRootTerms terms);

struct Kpss {
  double statistic = 0.0;
  double pValue = 1.0;   // at least .10 where it says .10, at most .01 where it says .01
  std::size_t lags = 0;  // of the long-run variance
};

// Kwiatkowski, Phillips, Schmidt & Shin (1992), null hypothesis: stationary around a level (or a trend). The long-run
// variance has Bartlett weights on the number of lags that Hobijn, Franses & Ooms (1998) choose from the data; the
// p-value is read between the critical values of the 1992 paper. Nothing for a series that does not vary.
std::optional<Kpss> kpss(std::span<const double> x, UnitRootTerms terms);

}  // namespace engine
