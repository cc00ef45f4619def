// From a regression on placed series (see lag_data.h) back to the series as they are.

#pragma once

#include <cstddef>
#include <vector>

#include "engine/linear_algebra/matrix.h"
#include "engine/regression/inference.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/nested_regression.h"

namespace engine {

// The coefficients of one equation: constant, lags, exogenous series. Infinite or below the normal range where the
// units of the series are too far apart for doubles.
template <class Real>
std::vector<double> originalCoefficients(const LagData& data, std::size_t lag, std::size_t equation,
                                         const NestedRegression<Real>& regression);

template <class Real>
InverseDiagonal originalInverseDiagonal(const LagData& data, std::size_t lag, const NestedRegression<Real>& regression);

// (Z'Z)^-1, k x k in the order of the coefficients.
template <class Real>
Matrix originalInverse(const LagData& data, std::size_t lag, const NestedRegression<Real>& regression);

}  // namespace engine
