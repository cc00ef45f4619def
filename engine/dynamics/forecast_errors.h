// The covariance of the errors of a vector autoregression's forecasts, estimation uncertainty included.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/bias_correction.h"
#include "engine/dynamics/forecast_path.h"

namespace engine {

// The errors of the forecasts 1..H as combinations of uncorrelated unit variates. Cov(h, g) is the sum over k < g of
// shocks[h-g+k] shocks[k]' (h >= g) plus estimation[h-1] estimation[g-1]'.
struct ForecastErrors {
  std::vector<Matrix> shocks;      // Phi(i) P, K x K, with P P' the covariance of the shocks
  std::vector<Matrix> estimation;  // K x (m K) each, or empty: estimation uncertainty left out

  // K x K, for horizons counted from 1.
  Matrix covariance(std::size_t h, std::size_t g) const;
};

// Without estimation uncertainty, at these lag matrices and covariance. Nothing when the covariance is singular.
std::optional<ForecastErrors> shockErrors(std::span<const Matrix> lags, const Matrix& covariance, std::size_t horizon);

// At the corrected model, with the term that estimating the coefficients adds: the sum over i < h, j < g of x(h-1-i)'
// (Z'Z)^-1 x(g-1-j) Phi(i) S Phi(j)' for the regressor rows x (H x m) of the corrected model's own forecasts. Nothing
// when (Z'Z)^-1 or the covariance is singular.
std::optional<ForecastErrors> forecastErrors(const CorrectedModel& model, const Matrix& regressors);

// The roots of the diagonal of Cov(h, h): H x K.
Matrix standardErrors(const ForecastErrors& errors);

}  // namespace engine
