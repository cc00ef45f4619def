// What of the forecasts' variance, and what of the data, comes from which shock.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/bootstrap_bands.h"
#include "engine/dynamics/decompositions.h"
#include "procedures/vardynamics/analysis/draws.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Of every shock in the variance of every forecast, horizons 1..H: element (i, j) is the share of shock j in series i.
struct VarianceShares {
  std::vector<engine::Matrix> shares;
  std::vector<engine::Band> bands = {};  // one a level; none without a bootstrap
};

// The data of the regression's rows as a sum of parts.
struct History {
  engine::HistoricalDecomposition parts;
  // The first rows that still show the values before the sample: up to the last in which, for some series, their part
  // is more than a twentieth of the root mean square of what the shocks do.
  std::size_t initialRows = 0;

  std::size_t rows() const { return parts.initial.rows; }
};

// Those that were asked for.
struct Decomposition {
  engine::Matrix standardErrors = {};  // H x K: of forecasts at known coefficients, whose squares are divided
  std::optional<VarianceShares> orthogonal = {};
  std::optional<VarianceShares> generalized = {};
  std::optional<VarianceShares> normalised = {};  // the generalized ones divided by their row sums
  std::optional<History> history = {};

  std::size_t horizon() const { return standardErrors.rows; }
};

// `order` of the orthogonal shocks; empty for that of the series. Throws UserError when the residuals are linearly
// dependent, and what `draws` throws.
Decomposition decompose(const Model& model, const ModelData& data, const DecompositionSettings& settings,
                        const std::vector<std::size_t>& order, Draws& draws);

// The sum of the shocks' parts, n x K: the data less its base, which is all other parts.
engine::Matrix sumOfShocks(const History& history);

}  // namespace vardynamics
