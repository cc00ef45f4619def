// All eigenvalues of a square matrix, complex ones included.

#pragma once

#include <complex>
#include <optional>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

// The n eigenvalues, by falling modulus, of a conjugate pair the one with the positive imaginary part first. The matrix
// is balanced first (Parlett & Reinsch 1969, with powers of two), so that the units of its rows and columns do not
// matter. Nothing when an element is not finite or the QR iterations do not converge.
std::optional<std::vector<std::complex<double>>> complexEigenvalues(Matrix a);

}  // namespace engine
