// Simulated stable vector autoregressions, the same on every machine.

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

struct Workload {
  std::string name;
  std::size_t length;  // T
  std::size_t series;  // K
  std::int32_t maxLag;
};

// The workloads that are measured in memory, by name: w1, w2, w3, w3x (w3 with 25 lags), w4.
const std::vector<Workload>& workloads();

// K series of T values of a VAR(2) around a level of 10: y(t) = A1 y(t-1) + A2 y(t-2) + e(t), with 0.4 and 0.1 on the
// diagonals, off-diagonal coefficients whose absolute values sum to less than 0.3 a row, and e the sum of four uniform
// numbers from a linear congruential generator.
std::vector<std::vector<double>> simulatedVar(std::size_t length, std::size_t series, std::uint64_t seed);

}  // namespace bench
