// The roots of a vector autoregression: is it stable, and which cycles does it have?

#pragma once

#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/lag_matrices.h"

namespace engine {

// An eigenvalue of the companion matrix.
struct Root {
  double modulus = 0.0;
  double real = 0.0;
  double imaginary = 0.0;
  double period = 0.0;  // of its cycle, 2 pi over the angle: infinite for a positive real root, 2 for a negative one
};

// The K p roots by falling modulus, of a conjugate pair the one with the positive imaginary part first. Nothing when
// the eigenvalues could not be computed.
std::optional<std::vector<Root>> rootsOf(std::span<const Matrix> lags);

// The largest modulus; 0 for p = 0, infinite when the eigenvalues could not be computed. Stable means below 1.
double largestModulus(std::span<const Matrix> lags);

}  // namespace engine
