// The regressors of the model, each with what it is.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "procedures/vardynamics/data/known_columns.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

struct Regressor {
  enum class Kind { constant, endogenous, trend, season, exogenous };
  Kind kind = Kind::constant;
  std::size_t index = 0;  // of the series or the season
  std::size_t lag = 0;
};

// In the order of the coefficients: the constant if there is one, the lags 1..p of every series, then the known columns
// as knownColumns orders them.
std::vector<Regressor> regressorsOf(const ModelSettings& model, std::size_t lag, std::size_t cycle);

inline bool hasConstant(const ModelSettings& model) {
  return model.deterministic != Deterministic::none;
}

// How a command or a table names it, in English: realgdp(t-1).
std::string plainName(const Regressor& regressor, const ModelSettings& model);

}  // namespace vardynamics
