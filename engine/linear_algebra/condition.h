// How far the regressors are from being collinear.

#pragma once

#include <cstddef>

#include "engine/linear_algebra/matrix.h"

namespace engine {

// The reciprocal 1-norm condition number of S = D X'X D, where D scales the diagonal to one so that the units of the
// regressors do not matter: 1 / (||S||_1 ||S^-1||_1), in 0..1, 1 for orthogonal regressors (van der Sluis 1969 on the
// scaling). Takes X'X and its computed inverse, both k x k; NaN when they hold values that are not finite.
double reciprocalCondition(const Matrix& crossProducts, const Matrix& inverse);

enum class Conditioning { sound, poor, singular };

// Singular below k * 2.2e-16, where a computed inverse has no correct digit left: rounding seldom leaves an exactly
// zero pivot for a column that is the sum of others. Poor below 1e-12, and for NaN.
Conditioning classifyCondition(double reciprocalCondition, std::size_t k);

}  // namespace engine
