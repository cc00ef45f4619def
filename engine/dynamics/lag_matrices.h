// The lag matrices of a vector autoregression and what follows from them alone.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/regression/fitted_var.h"

namespace engine {

// A_1 .. A_p, K x K each: row i holds the coefficients of equation i.
using LagMatrices = std::vector<Matrix>;

LagMatrices lagMatrices(const FittedVar& fit);

// [A_1 .. A_p], K x K p, and back.
Matrix joined(std::span<const Matrix> lags);
LagMatrices separated(const Matrix& joinedLags);

// K x K p, lag 1 first, to row-major values with the oldest lag first: [A_p .. A_1].
std::vector<double> oldestFirst(const Matrix& joinedLags);

// F, K p x K p: [A_1 .. A_p] above the identity that moves every lag one place back.
Matrix companionMatrix(std::span<const Matrix> lags);

// Phi(0) = I, Phi(1), .., `count` matrices: Phi(i) = sum over j = 1..min(i, p) of Phi(i-j) A_j (Luetkepohl 2005,
// section 2.1.2). `seriesCount` is K, which p = 0 does not tell.
std::vector<Matrix> movingAverage(std::span<const Matrix> lags, std::size_t seriesCount, std::size_t count);

}  // namespace engine
