// LU factorisation with partial pivoting, and the inverse and the determinant that rest on it.
//
// Doolittle's form, right-looking: P A = L U with ones on the diagonal of L (Golub & Van Loan, Matrix Computations,
// section 3.4). Singular means an exactly zero pivot; tolerances are the callers'.

#pragma once

#include <cstddef>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

struct LuFactors {
  Matrix lu;                          // n x n: L below the diagonal, U on and above it
  std::vector<std::size_t> pivotRow;  // for each column c, the row (>= c) that was swapped with row c
  bool singular = false;              // some pivot was exactly zero; its column was left unscaled
};

// Takes the square matrix over. Among equally large candidates the first row becomes the pivot.
LuFactors factorizeLu(Matrix a);

// The inverse of a square n x n matrix: A * result = I. False when A is not square or is singular; `result` is then
// untouched.
bool invertMatrix(const Matrix& a, Matrix& result);

// The inverse of X'X, for X of n x k. False, with `result` untouched, when n or k is 0, n < k, or X'X is singular.
bool invertCrossProduct(const Matrix& x, Matrix& result);

// The determinant of a matrix given by its row vectors; 0 when it is empty or not square. det [[0, 1], [1, 0]] = -1.
double determinant(const std::vector<std::vector<double>>& rows);

}  // namespace engine
