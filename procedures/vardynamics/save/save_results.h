// The saved data file: residuals of the sample's rows and forecasts of the periods after them, or a back-test.

#pragma once

#include "procedures/vardynamics/analysis/analysis.h"
#include "procedures/vardynamics/syntax/observations.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Writes the file that the settings ask for: one case a period, with the number of its row in the dataset (counted on
// after the last), the components of its date, and for each series what was asked for; of a back-test the columns of
// backtestColumns(). False, after a trace line, when the host refuses a variable, a case or the file. Host exceptions
// pass through.
bool saveResults(const Settings& settings, const Observations& observations, const Analysis& analysis);

}  // namespace vardynamics
