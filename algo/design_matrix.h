// The regression design that all equations of a vector autoregression share.

#pragma once

#include <cstdint>
#include <vector>

#include "algo/matrix.h"

namespace varmodel {

// k = m + 1 + p K: the constant, p lags of the K endogenous series, and the m exogenous series.
std::int64_t regressorCount(std::size_t endogenousCount, std::size_t exogenousCount, std::int32_t lag);

// True when every series of both lists has `length` values.
bool seriesAreAligned(const std::vector<std::vector<double>>& endogenous,
                      const std::vector<std::vector<double>>& exogenous, std::size_t length);

// X, n x k with n = T - maxLag, for aligned series of T values. Row r is observation t = maxLag + r, so that every lag
// up to maxLag is fitted on the same rows. Columns: 1.0; for l = 1..lag, for j = 1..K: endogenous series j at t - l;
// then exogenous series 1..m at t. Requires 1 <= lag <= maxLag < T.
Matrix designMatrix(const std::vector<std::vector<double>>& endogenous,
                    const std::vector<std::vector<double>>& exogenous, std::int32_t maxLag, std::int32_t lag);

// Y, n x K: the endogenous series themselves over the rows of X.
Matrix targetMatrix(const std::vector<std::vector<double>>& endogenous, std::int32_t maxLag);

}  // namespace varmodel
