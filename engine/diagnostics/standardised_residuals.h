// Residuals of several equations on a common scale.

#pragma once

#include <optional>
#include <span>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

using ResidualList = std::span<const std::vector<double>>;  // K equations of n values each

// Every equation's residuals less their mean.
std::vector<std::vector<double>> centredResiduals(ResidualList residuals);

// P^-1 e(t) for every row t, where P is the Cholesky factor of the average of e(t) e(t)': uncorrelated, of mean square
// 1. Depends on the order of the equations. Nothing when they are linearly dependent to rounding or n = 0.
std::optional<std::vector<std::vector<double>>> choleskyStandardised(ResidualList residuals);

}  // namespace engine
