// Tests of residuals: for autocorrelation and for normality.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace engine {

struct TestResult {
  double statistic = 0.0;
  double pValue = 1.0;
};

// Ljung & Box (1978): Q = n (n + 2) * sum over k = 1..lags of r(k)^2 / (n - k), with the p-value of chi-squared on
// `lags` degrees of freedom (no allowance for estimated parameters), 1 when the distribution refuses Q. Nothing when
// the autocorrelations do not exist (n = 0, lags < 1 or lags >= n).
std::optional<TestResult> ljungBox(std::span<const double> residuals, std::int32_t lags);

// One seasonal cycle of the finest time unit among "SECOND" 60, "MINUTE" 60, "HOUR" 24, "DAY" 7, "WEEK" 52, "MONTH" 12,
// "QUARTER" 4, "YEAR" 1; `otherwise` when the list names none of them.
std::int32_t ljungBoxLagCount(std::span<const std::string> timeUnitNames, std::int32_t otherwise);

// Jarque & Bera (1980): JB = n (S^2 / 6 + (K - 3)^2 / 24) from the skewness S and the kurtosis K with moments over n.
// The p-value is exp(-JB / 2), chi-squared on 2 degrees of freedom, but fixed at 1e-6 from JB = 10 on. Nothing when n <
// 4 or the variance is below 1e-12.
std::optional<TestResult> jarqueBera(std::span<const double> residuals);

}  // namespace engine
