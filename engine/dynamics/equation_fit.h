// How well each equation fits, and what is known of its coefficients, by Student's t throughout.

#pragma once

#include <cstddef>
#include <optional>

#include "engine/diagnostics/test_statistics.h"
#include "engine/dynamics/fit_parts.h"
#include "engine/regression/inference.h"

namespace engine {

// With a constant, R square and F speak of deviations from the mean; without one, of deviations from zero.
struct EquationFit {
  double rSquare = 0.0;
  double adjustedRSquare = 0.0;  // 1 - (1 - R^2) (n - 1) / (n - m), with n for n - 1 where there is no constant
  std::optional<FTest> overall;  // all coefficients but the constant are zero: on m - 1 (or m) and n - m
  double standardError = 0.0;    // of the regression: the root of E'E / (n - m)
  double residualSumOfSquares = 0.0;
};
EquationFit equationFit(const FittedVar& fit, const VarSample& sample, std::size_t equation);

// m coefficients: standard errors from S and (Z'Z)^-1, t, two-sided p-values and limits at `level` percent from
// Student's t with n - m.
CoefficientInference studentInference(const FittedVar& fit, std::size_t equation, double level);

// ln det V, in which the units count, from S = E'E / (n - m); the Gaussian log-likelihood from it, -n/2 (ln det V +
// K (ln 2 pi + 1)). Minus infinity and infinity when the residuals are linearly dependent.
double logDeterminant(const FittedVar& fit, const Matrix& residualCovariance);
double logLikelihood(const FittedVar& fit, double logDeterminant);

}  // namespace engine
