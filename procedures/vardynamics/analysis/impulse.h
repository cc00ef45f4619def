// What follows a shock: responses of every series, with bands.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/bootstrap_bands.h"
#include "procedures/vardynamics/analysis/draws.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Responses to the shocks of one type, at the horizons 0..h: element (i, j) of a matrix is that of series i to shock j.
struct ShockResponses {
  engine::ShockType type = engine::ShockType::orthogonal;
  std::vector<std::size_t> shown;                // shocks that are asked for: columns of the matrices
  engine::Responses values;                      // of the least-squares model
  std::optional<engine::Responses> errors = {};  // by the delta method, with BANDS=ANALYTIC
  std::vector<engine::Band> bands = {};          // one a level, ascending; none with BANDS=NONE

  std::size_t horizon() const { return values.size() - 1; }
};

// In the order orthogonal, generalized, reduced, exogenous; those that were asked for.
using Impulse = std::vector<ShockResponses>;

// How the responses of one type are computed from the model.
engine::ImpulseOptions impulseOptions(engine::ShockType type, const Settings& settings, const Model& model,
                                      const ModelData& data);

// Throws UserError when the residuals are linearly dependent or the draws do not suffice, Stopped where the work was
// stopped.
Impulse findResponses(const Settings& settings, const Model& model, const ModelData& data, Draws& draws);

// The orthogonal shocks u = P^-1 e of the rows of the regression, n x K, in the order of the series; P in the given
// order (empty: that of the series) from S. Throws UserError when the residuals are linearly dependent.
engine::Matrix orthogonalShocks(const Model& model, const std::vector<std::size_t>& order);

}  // namespace vardynamics
