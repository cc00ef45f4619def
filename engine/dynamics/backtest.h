// Forecasts from the past of a sample: what the model would have said at many origins, beside simple rivals.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/arithmetic/parallel_blocks.h"
#include "engine/dynamics/fit_parts.h"
#include "engine/dynamics/slope_bias.h"

namespace engine {

struct BacktestOptions {
  std::size_t origins = 20;  // r: the last ones that leave `horizon` observations, `step` rows apart
  std::size_t horizon = 4;
  std::size_t step = 1;
  bool rolling = false;    // windows as long as the first; otherwise all rows up to the origin
  bool limits = true;      // standard errors too
  bool namedTerms = true;  // `terms` describes the columns beside the lags; otherwise they are taken as they are
  KnownTerms terms = {};
  std::size_t ownTerms = 0;  // how many of the known columns, from the first, the rival autoregressions have
  std::size_t cycle = 0;     // of the seasonal rival; below 2 for none
  Progress progress = {};
};

// Of one origin; H x K each.
struct OriginForecast {
  std::size_t origin = 0;  // observations before the first that is forecast
  Matrix values;
  Matrix standardErrors;  // empty without limits
  double degreesOfFreedom = 0.0;
  Matrix autoregression;  // AR(p) of each series alone
  Matrix noChange;
  Matrix seasonal;  // the value one cycle before; empty without a cycle
};

struct BacktestError {
  std::size_t origin = 0;  // at which the model could not be fitted; 0 when there are too few rows for these origins
};

struct Backtest {
  std::vector<OriginForecast> forecasts;  // ascending; incomplete when stopped
  std::optional<BacktestError> error;
  bool stopped = false;
};

// Refits the model of `fit` (lag, constant, first row) with the lag fixed at every origin, by updating sums, and
// forecasts the next observations; known columns hold their observed values. Equals refitting from scratch.
Backtest backtest(const FittedVar& fit, const VarSample& sample, const BacktestOptions& options);

}  // namespace engine
