// Residuals of a fitted lag order, straight from the series.

#pragma once

#include <vector>

#include "engine/arithmetic/planes.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/residual_covariance.h"

namespace engine {

struct LagResiduals {
  std::vector<std::vector<double>> residuals;  // per equation, n values: actual minus fitted
  ResidualMoments moments;
};

// `coefficients`: k x K for the centred data and the regressors of `lag` in LagData's order. Every residual is the
// centred target minus one sum over the k terms in that order. The moments are summed in blocks of 96 rows.
LagResiduals lagResiduals(const LagData& data, std::size_t lag, const Planes<double>& coefficients);

}  // namespace engine
