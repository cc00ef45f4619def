// Eigenvalues and eigenvectors of a symmetric matrix.

#pragma once

#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

struct SymmetricEigen {
  std::vector<double> values;  // n
  Matrix vectors;              // n x n: column j belongs to values[j]
};

// A = Q diag(values) Q' by cyclic Jacobi rotations (Golub & Van Loan, section 8.5), which give small eigenvalues of a
// positive definite matrix to high relative accuracy; values in no particular order. Reads the whole of A.
SymmetricEigen symmetricEigen(Matrix a);

}  // namespace engine
