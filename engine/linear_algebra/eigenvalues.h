// Eigenvalues of a small dense matrix.

#pragma once

#include <vector>

namespace engine {

// Real parts of the eigenvalues of a K x K matrix, in the solver's order (not sorted); their sum is the trace. Empty
// when the matrix is empty or not square, or the solver does not converge.
std::vector<double> eigenvaluesOf(const std::vector<std::vector<double>>& matrix);

}  // namespace engine
