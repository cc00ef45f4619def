// Point forecasts of a fitted vector autoregression, with trend, seasons and exogenous series.

#pragma once

#include <cstddef>

#include "engine/dynamics/fit_parts.h"

namespace engine {

struct ForecastPath {
  Matrix regressors;  // H x m: row s is what the forecast of observation origin + s rests on
  Matrix values;      // H x K
};

// The recursion from the first `origin` observations (at least p) on, each forecast feeding the next. The known columns
// reach to row origin + horizon - 1 at least.
ForecastPath forecastPath(const FittedVar& fit, const VarSample& sample, std::size_t origin, std::size_t horizon);

}  // namespace engine
