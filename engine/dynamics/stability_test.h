// Is a vector autoregression stable? A test without eigenvalues, for the inside of a simulation.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace engine {

// Works on the lags in one row-major K x K p array, oldest lag first: [A_p .. A_1].
class StabilityTest {
 public:
  // `scales` are typical sizes of the K series; the lags are seen in these units.
  StabilityTest(std::vector<double> scales, std::size_t lag);

  // Whether every root is inside the unit circle. The companion matrix is squared until its power is smaller than 1 in
  // norm (stable) or its trace larger than K p (not); before that, a real root beyond 1 shows in the sign of det(I -
  // A_1
  // - .. - A_p), which is positive for stable lags.
  bool isStable(std::span<const double> lags);

 private:
  bool mayBeStable(std::span<const double> lags);
  void fillCompanion(std::span<const double> lags);
  void square();

  std::vector<double> scales_;
  std::size_t lag_;
  std::vector<double> power_;
  std::vector<double> next_;
};

}  // namespace engine
