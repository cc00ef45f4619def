// Correlations from covariances.

#pragma once

#include "engine/linear_algebra/matrix.h"

namespace engine {

// R(i, j) = S(i, j) / sqrt(S(i, i) S(j, j)), whatever the units; the diagonal is 1. S has positive variances.
Matrix correlations(const Matrix& covariance);

}  // namespace engine
