// Ordinary least squares of several equations on the same regressors, by the normal equations.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "algo/matrix.h"

namespace varmodel {

struct LeastSquaresFit {
  Matrix inverse;                                 // (X'X)^-1, k x k
  double reciprocalCondition = 0.0;               // of X'X scaled to unit diagonal, see condition.h
  std::vector<std::vector<double>> coefficients;  // per equation, k values in the order of X's columns
  Matrix fitted;                                  // X B, n x K
  std::vector<std::vector<double>> residuals;     // per equation, n values: actual minus fitted
};

// Regresses each of the K columns of Y (n x K) on X (n x k, n >= k): b = (X'X)^-1 X'y, with one inversion for all
// equations and one step of iterative refinement (Bjorck, Numerical Methods for Least Squares Problems, 1996,
// section 2.9). Nothing when X'X has an exactly zero pivot. The identity that must hold: X'e = 0 up to rounding.
std::optional<LeastSquaresFit> fitLeastSquares(const Matrix& x, const Matrix& y);

// Sum of squared deviations of the n residuals from their mean, over n - k; 0 when there are none or n = k.
double residualVariance(std::span<const double> residuals, std::int64_t k);

}  // namespace varmodel
