// The covariance matrix of a stable vector autoregression's state.

#pragma once

#include <optional>
#include <span>

#include "engine/dynamics/lag_matrices.h"

namespace engine {

// Gamma = F Gamma F' + diag(S, 0), K p x K p: the covariance of (y(t), .., y(t-p+1)), by doubling: Gamma := Gamma + M
// Gamma M', M := M^2 adds twice as many terms of the series each time (Anderson & Moore 1979). Nothing when F is not
// stable to rounding.
std::optional<Matrix> stationaryCovariance(std::span<const Matrix> lags, const Matrix& covariance);

}  // namespace engine
