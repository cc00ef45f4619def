// Counts and checks before a regression.

#pragma once

#include <cstdint>
#include <vector>

namespace engine {

// k = m + 1 + p K: the constant, p lags of the K endogenous series, and the m exogenous series.
std::int64_t regressorCount(std::size_t endogenousCount, std::size_t exogenousCount, std::int32_t lag);

// True when every series of both lists has `length` values.
bool seriesAreAligned(const std::vector<std::vector<double>>& endogenous,
                      const std::vector<std::vector<double>>& exogenous, std::size_t length);

}  // namespace engine
