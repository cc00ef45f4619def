// What follows a shock: responses of all series over the periods after it.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/lag_matrices.h"

namespace engine {

// One matrix a horizon 0..H: element (i, j) is the response of series i to shock j.
using Responses = std::vector<Matrix>;

// What a shock does at once, and with exogenous lags in the periods after: K x J matrices M_0, M_1, ... The responses
// are sum over l of Phi(i - l) M_l.
using Impacts = std::vector<Matrix>;

Responses responsesTo(std::span<const Matrix> phi, const Impacts& impacts);

// The order itself, or that of the series for an empty one.
std::vector<std::size_t> completeOrder(std::span<const std::size_t> order, std::size_t series);

// P with P P' = S, whose column j is the shock of series j when the series come in this order: a Cholesky factor with
// rows and columns put back. A shock moves its own series and those after it at once, none before. An empty
// order is that of the series. Nothing when S is singular.
std::optional<Matrix> orderedCholesky(const Matrix& covariance, std::span<const std::size_t> order);

// Column j is S e_j / sqrt(s_jj): what the other shocks are expected to be when that of series j is one standard
// deviation (Pesaran & Shin 1998). It equals the first column of the Cholesky factor when series j comes first.
Matrix generalizedImpact(const Matrix& covariance);

// Every shock made such that its own series responds by 1 at horizon 0.
void scaleToUnit(Responses& responses);

// Sums over the horizons up to each, of the series that are marked.
void cumulate(Responses& responses, const std::vector<bool>& series);

}  // namespace engine
