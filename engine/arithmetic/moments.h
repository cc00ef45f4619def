// Sums over a series, always added left to right.

#pragma once

#include <span>

namespace engine {

// (x1 + ... + xn) / n; n must not be 0.
inline double mean(std::span<const double> x) {
  double sum = 0.0;
  for (const double value : x) sum += value;
  return sum / static_cast<double>(x.size());
}

inline double sumOfSquares(std::span<const double> x) {
  double sum = 0.0;
  for (const double value : x) sum += value * value;
  return sum;
}

inline double sumOfSquaredDeviations(std::span<const double> x, double center) {
  double sum = 0.0;
  for (const double value : x) sum += (value - center) * (value - center);
  return sum;
}

}  // namespace engine
