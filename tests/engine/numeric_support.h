// What the tests of the estimation engine share.

#pragma once

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

using SeriesList = std::vector<std::vector<double>>;

// A few operations on numbers near 1: each rounds by at most 1.1e-16.
inline constexpr double kRounding = 1e-14;

inline auto elementsNear(const std::vector<double>& expected, double tolerance) {
  return ::testing::Pointwise(::testing::DoubleNear(tolerance), expected);
}

inline Matrix matrixOf(const SeriesList& rows) {
  Matrix result(rows.size(), rows.empty() ? 0 : rows.front().size());
  for (std::size_t i = 0; i < rows.size(); ++i) std::ranges::copy(rows[i], result.row(i).begin());
  return result;
}

// Numbers of -1..1 that look random and are the same on every machine (a 64-bit linear congruential generator).
inline std::vector<double> noise(std::uint64_t state, std::size_t length) {
  std::vector<double> series(length);
  for (double& value : series) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    value = static_cast<double>(state >> 11) / 4503599627370496.0 - 1.0;
  }
  return series;
}

inline SeriesList noiseSeries(std::size_t count, std::size_t length) {
  SeriesList result;
  for (std::size_t i = 0; i < count; ++i) result.push_back(noise(100 + i, length));
  return result;
}

}  // namespace engine
