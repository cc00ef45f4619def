// A fitted vector autoregression with the bias of its slopes removed.

#pragma once

#include <optional>

#include "engine/dynamics/fit_parts.h"
#include "engine/dynamics/slope_bias.h"

namespace engine {

// delta = 1, .99, .98, .., 0: the first for which the lag matrices less delta times the bias (K x K p) are stable. 0
// when only the uncorrected ones are, or none. `scales` are typical sizes of the K series.
double stabilisingShare(std::span<const Matrix> lags, const Matrix& bias, std::vector<double> scales);

struct CorrectedModel {
  Matrix bias;         // b, K x K p; zeros when the model is not corrected
  double share = 0.0;  // delta
  FittedVar fit;       // coefficients corrected; residuals and (Z'Z)^-1 stay those of least squares
  Matrix covariance;   // S of the corrected residuals, with divisor n - m
};

// Lag coefficients less delta b; the other coefficients such that the residuals are orthogonal to their columns. Both
// these and the covariance follow from (Z'Z)^-1 alone: with M the inverse of its lag block, E'E grows by delta^2 b M
// b'. Nothing when that block is singular.
std::optional<CorrectedModel> correctedModel(const FittedVar& fit, const Matrix& bias);

// With the bias at the least-squares estimates: a model with a root on or outside the unit circle is left as it is.
// `terms` describes the columns beside the lags; nullptr takes them from the sample as they are.
std::optional<CorrectedModel> correctedModel(const FittedVar& fit, const VarSample& sample, const KnownTerms* terms);

}  // namespace engine
