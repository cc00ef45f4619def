// The sample autocorrelation function.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace engine {

struct Autocorrelations {
  std::vector<double> values;          // r(1) .. r(L)
  std::vector<double> standardErrors;  // of each r(k), under the hypothesis that the process is MA(k - 1)
};

// r(k) is the sum of (x(t) - mean)(x(t + k) - mean) over t = 1 .. n - k, divided by that sum for k = 0. Standard errors
// by Bartlett's formula (1946): se(k) = sqrt((1 + 2 (r(1)^2 + ... + r(k-1)^2)) / n), so se(1) = 1 / sqrt(n). A series
// whose squared deviations sum to less than 1e-10 gets zeros throughout. Nothing when n = 0, lags < 1 or lags >= n.
std::optional<Autocorrelations> autocorrelations(std::span<const double> x, std::int32_t lags);

}  // namespace engine
