// Lagrange multiplier tests for residual autocorrelation of all equations jointly.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/diagnostics/standardised_residuals.h"
#include "engine/diagnostics/test_statistics.h"

namespace engine {

struct BreuschGodfrey {
  std::size_t lags = 0;     // j: lags 1..j are tested together
  ChiSquaredTest lagrange;  // n (K - tr(V_r^-1 V_u)) on j K^2
  FTest rao;                // Rao's F, its second degrees of freedom not rounded
};

// For j = 1..h: residuals regressed on the m regressors of the model and on their own lags 1..j, with zeros before the
// sample (Breusch 1978, Godfrey 1978), and Rao's approximation of Wilks' lambda det V_u / det V_r (Edgerton & Shukur
// 1999): with M = j K, r = sqrt((K^2 M^2 - 4) / (K^2 + M^2 - 5)), or 1 where that is not defined, and N = n - m - M -
// (K - M + 1) / 2, F is (1 / lambda^(1/r) - 1) (N r - K M / 2 + 1) / (K M). The K residuals must be orthogonal to the
// regressors. The list ends before the first j without positive second degrees of freedom or whose lags are linearly
// dependent; it is empty when the residuals or the regressors are.
std::vector<BreuschGodfrey> breuschGodfrey(ResidualList residuals, std::span<const std::vector<double>> regressors,
                                           std::size_t h);

}  // namespace engine
