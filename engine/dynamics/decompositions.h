// What of the forecasts' variance, and what of the data, comes from which shock.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/fit_parts.h"
#include "engine/dynamics/responses.h"

namespace engine {

// Shares of orthogonal shocks in the variance of the forecasts 1..H, from their responses at the horizons 0..H-1:
// element (i, j) is the part of series i that comes from shock j; rows sum to 1.
std::vector<Matrix> varianceShares(std::span<const Matrix> orthogonalResponses);

// The same of generalized shocks: sum_l (e_i' Phi_l S e_j)^2 / (s_jj sum_l e_i' Phi_l S Phi_l' e_i), the variance being
// that of the orthogonal shocks (Pesaran & Shin 1998). Rows do not sum to 1.
std::vector<Matrix> generalizedShares(std::span<const Matrix> generalizedResponses,
                                      std::span<const Matrix> orthogonalResponses);

// Every row divided by its sum (Diebold & Yilmaz 2012).
std::vector<Matrix> normalisedShares(std::vector<Matrix> shares);

// The data on the n rows of the regression as a sum, n x K each.
struct HistoricalDecomposition {
  Matrix deterministic;           // constant, trend and seasons
  std::vector<Matrix> exogenous;  // of each exogenous series
  Matrix initial;                 // what the values before the sample still do
  std::vector<Matrix> shocks;     // of each orthogonal shock
};

// Each part is the recursion of the model on that input alone. `exogenousColumns` lists the coefficients' columns of
// each exogenous series; other known columns are deterministic. P is orderedCholesky() of S.
HistoricalDecomposition historicalDecomposition(const FittedVar& fit, const VarSample& sample, const Matrix& root,
                                                std::span<const std::vector<std::size_t>> exogenousColumns);

}  // namespace engine
