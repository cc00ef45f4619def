#include "engine/dynamics/stationary_covariance.h"

#include <cmath>
#include <limits>

#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

constexpr int kMostDoublings = 60;  // a root of 1 - 1e-16 needs 59

// Diagonal elements are sums of squares: they stop growing in every unit.
bool addsNothing(const Matrix& increment, const Matrix& sum) {
  for (std::size_t i = 0; i < sum.rows; ++i) {
    if (!(increment(i, i) <= 0.25 * std::numeric_limits<double>::epsilon() * sum(i, i))) return false;
  }
  return true;
}

}  // namespace

std::optional<Matrix> stationaryCovariance(std::span<const Matrix> lags, const Matrix& covariance) {
  Matrix power = companionMatrix(lags);
  Matrix gamma(power.rows, power.rows);
  for (std::size_t i = 0; i < covariance.rows; ++i) {
    for (std::size_t j = 0; j < covariance.rows; ++j) gamma(i, j) = covariance(i, j);
  }
  for (int count = 0; count < kMostDoublings; ++count) {
    const Matrix increment = multiplyTransposed(multiply(power, gamma), power);
    // With F^(2^count) nilpotent in a part, a step may add nothing there before the lagged blocks are filled.
    if ((std::size_t{1} << std::min(count, 62)) >= lags.size() && addsNothing(increment, gamma)) return gamma;
    addScaled(1.0, increment, gamma);
    power = multiply(power, power);
  }
  return std::nullopt;
}

}  // namespace engine
