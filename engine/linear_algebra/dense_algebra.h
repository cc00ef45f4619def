// Sums and products of small dense matrices. Every element is one sum, added in ascending order of the summation index.

#pragma once

#include "engine/linear_algebra/matrix.h"

namespace engine {

Matrix identityMatrix(std::size_t size);

Matrix transposed(const Matrix& a);

// A B, for A of n x k and B of k x m.
Matrix multiply(const Matrix& a, const Matrix& b);

// A B', for A of n x k and B of m x k.
Matrix multiplyTransposed(const Matrix& a, const Matrix& b);

// A := A + factor B, of one shape.
void addScaled(double factor, const Matrix& b, Matrix& a);

// The block of `rows` x `columns` elements whose first is (row, column).
Matrix blockOf(const Matrix& a, std::size_t row, std::size_t column, std::size_t rows, std::size_t columns);

// The rows and the columns that `indices` lists, in its order.
Matrix principalPart(const Matrix& a, std::span<const std::size_t> indices);

// a'a summed over all elements: the squared Frobenius norm.
double sumOfSquares(const Matrix& a);

}  // namespace engine
