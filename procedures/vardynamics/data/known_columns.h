// The regressors that are no lags and no constant, over the sample and as far beyond it as they are known.

#pragma once

#include <cstddef>
#include <vector>

#include "procedures/vardynamics/data/sample.h"
#include "procedures/vardynamics/data/seasons.h"

namespace vardynamics {

struct KnownColumnOptions {
  bool trend = false;
  Seasons seasons = {};
  std::size_t exogenousLags = 0;  // q: each exogenous series enters at lags 0..q
};

// In this order: the trend (1 in the sample's first row), the dummies of all seasons but the last, centred (1 - 1/s in
// the season, -1/s outside it), then each exogenous series at lags 0..q. T values each, then those of `horizon`
// periods, NaN where an exogenous value is not known. The first q values of a lagged series are 0; no regression has
// these rows.
SeriesList knownColumns(const Sample& sample, std::size_t horizon, const KnownColumnOptions& options);

}  // namespace vardynamics
