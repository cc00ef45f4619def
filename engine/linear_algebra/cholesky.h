// The Cholesky factor of a positive definite matrix, and what is solved with it (Golub & Van Loan, Matrix Computations,
// section 4.2). Rows and columns may be in any units: scaling row and column i by s scales row i of the factor by s.

#pragma once

#include <optional>

#include "engine/linear_algebra/matrix.h"

namespace engine {

// L, lower triangular with a positive diagonal, with L L' = A; reads the lower triangle of the n x n matrix A. Nothing
// when A is not positive definite to rounding: a pivot is not above n * 2.2e-16 of its diagonal element, or not finite.
std::optional<Matrix> choleskyFactor(const Matrix& a);

// Overwrites B, n x m, with the solution X of L X = B.
void solveLower(const Matrix& l, Matrix& b);

// Overwrites B, n x m, with the solution X of L' X = B.
void solveLowerTransposed(const Matrix& l, Matrix& b);

// The inverse of A = L L', full and exactly symmetric.
Matrix inverseFromCholesky(const Matrix& l);

}  // namespace engine
