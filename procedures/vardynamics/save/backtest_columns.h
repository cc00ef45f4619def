// The saved forecasts of a back-test.

#pragma once

#include <vector>

#include "procedures/vardynamics/save/saved_column.h"

namespace vardynamics {

// One case for every origin and horizon, in this order: the rows of the dataset of the origin (the last one that the
// forecast knows) and of the period that is forecast, the components of its date, and for each series what came, what
// was forecast, its standard error and its limits.
std::vector<SavedColumn> backtestColumns(const Settings& settings, const Observations& observations,
                                         const Backtest& backtest);

}  // namespace vardynamics
