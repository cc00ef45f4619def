// The regressors of the model, each with what it is.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "engine/dynamics/slope_bias.h"
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

// The coefficients' columns of each exogenous series, lag 0 first.
std::vector<std::vector<std::size_t>> exogenousColumns(const ModelSettings& model, std::size_t lag, std::size_t cycle);

// The terms beside the lags where their bias has a short form; nothing when exogenous series are among them.
std::optional<engine::KnownTerms> namedTerms(const ModelSettings& model, std::size_t cycle);

// How a command or a table names it, in English: realgdp(t-1).
std::string plainName(const Regressor& regressor, const ModelSettings& model);

}  // namespace vardynamics
