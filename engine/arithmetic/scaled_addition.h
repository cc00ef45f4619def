// The innermost loop of dense algebra, two elements at a time; elements never mix, so that every machine gives the same
// bits.

#pragma once

#include <cstddef>
#include <cstring>

namespace engine {

// target[i] += factor * source[i] for i < count; the two must not overlap.
inline void addScaled(double factor, const double* source, double* target, std::size_t count) {
  using Pair = double __attribute__((vector_size(16)));
  std::size_t i = 0;
  for (; i + 4 <= count; i += 4) {
    Pair values[2];
    Pair sums[2];
    std::memcpy(values, source + i, sizeof values);
    std::memcpy(sums, target + i, sizeof sums);
    sums[0] += values[0] * factor;
    sums[1] += values[1] * factor;
    std::memcpy(target + i, sums, sizeof sums);
  }
  for (; i < count; ++i) target[i] += factor * source[i];
}

}  // namespace engine
