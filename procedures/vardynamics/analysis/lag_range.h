// Which lag orders a sample allows.

#pragma once

#include <cstdint>

namespace vardynamics {

// T rows, K series, d regressors beside the lags (constant and known columns), exogenous series at lags 0..q.
struct ModelShape {
  std::int64_t rows = 0;
  std::int64_t series = 0;
  std::int64_t fixedRegressors = 0;
  std::int64_t exogenousLags = 0;
};

// The largest lag p whose regression on n = T - max(p, q) rows leaves K residual degrees of freedom or more, which a
// covariance of full rank needs; -1 when not even lag 0 does.
std::int32_t largestUsableLag(const ModelShape& shape);

// min(12, T / (4 K)), at least 1, at most the largest usable lag (where that is 1 or more).
std::int32_t defaultMaxLag(const ModelShape& shape);

}  // namespace vardynamics
