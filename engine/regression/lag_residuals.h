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

// `coefficients`: k x K for the placed data and the regressors of `lag` in LagData's order. Every residual is the
// placed target minus one sum over the k terms in that order, in the precision of Real, rounded and put back into the
// unit of the series. The moments are summed in blocks of 96 rows.
template <class Real>
LagResiduals lagResiduals(const LagData& data, std::size_t lag, const Planes<Real>& coefficients);

extern template LagResiduals lagResiduals(const LagData&, std::size_t, const Planes<double>&);
extern template LagResiduals lagResiduals(const LagData&, std::size_t, const Planes<DoubleDouble>&);

}  // namespace engine
