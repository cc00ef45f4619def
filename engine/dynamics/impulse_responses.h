// Impulse responses of a fitted vector autoregression, with standard errors by the delta method.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/fit_parts.h"
#include "engine/dynamics/responses.h"

namespace engine {

enum class ShockType { orthogonal, generalized, reduced, exogenous };

struct ImpulseOptions {
  ShockType type = ShockType::orthogonal;
  bool unit = false;                    // every shock scaled such that its own series responds by 1 at horizon 0
  std::vector<bool> cumulative = {};    // [series]; empty for none
  std::vector<std::size_t> order = {};  // of orthogonal shocks; empty for the order of the series
  // Columns of the coefficients of each exogenous series, lag 0 first, all of the same length.
  std::vector<std::vector<std::size_t>> exogenousColumns = {};
};

// Horizons 0..horizon: reduced Phi(i), orthogonal Phi(i) P, generalized Phi(i) S e_j / sqrt(s_jj) with S = E'E / (n -
// m), exogenous the response to one unit of each exogenous series for one period. Nothing when S is singular.
std::optional<Responses> impulseResponses(const FittedVar& fit, const ImpulseOptions& options, std::size_t horizon);

// Asymptotic standard errors of the same (Luetkepohl 2005, proposition 3.6): coefficients with covariance (Z'Z)^-1 x S,
// S with 2 D+ (S x S) D+' / n, independent of one another. Each is the length of the gradient along directions whose
// outer products sum to these covariances. Too small beyond short horizons when a root is near one. Nothing when
// (Z'Z)^-1 or S is singular.
std::optional<Responses> responseErrors(const FittedVar& fit, const ImpulseOptions& options, std::size_t horizon);

}  // namespace engine
