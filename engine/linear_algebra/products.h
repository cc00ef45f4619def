// Matrix products. Every element is one sum, added in ascending order of the summation index on any CPU: the loops
// vectorise over the elements, never over the terms.

#pragma once

#include "engine/linear_algebra/matrix.h"

namespace engine {

// A'B, for A of n x k and B of n x m: element (i, j) is the sum over the rows r of A[r][i] * B[r][j]. Both are read
// once, row by row.
Matrix crossProduct(const Matrix& a, const Matrix& b);

// X'X, for X of n x k: the full symmetric k x k matrix, bit for bit crossProduct(x, x).
Matrix crossProduct(const Matrix& x);

}  // namespace engine
