// Descriptive statistics of a series.

#pragma once

#include <cstdint>
#include <span>

namespace engine {

// In the units of the series.
struct Descriptives {
  std::uint64_t n = 0;
  double mean = 0.0;
  double standardDeviation = 0.0;  // divisor n - 1; exactly 0 for one value
  double minimum = 0.0;
  double maximum = 0.0;
};

// Two passes: the mean, then the squared deviations from it, each summed left to right. All zero for an empty series.
Descriptives describe(std::span<const double> x);

}  // namespace engine
