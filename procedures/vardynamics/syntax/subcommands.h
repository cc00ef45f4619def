// One function a subcommand: reads its parameters, checks them, and gives the record of its settings.
//
// Every function throws UserError for what a user must change.

#pragma once

#include <vector>

#include "host/command_parser.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// The lag order and the terms beside the lags; the variable lists are read apart from them.
ModelSettings readModelOptions(const SubComObj& model);
TestSettings readTests(const SubComObj& tests);
CausalitySettings readCausality(const SubComObj& causality);
ForecastSettings readForecast(const SubComObj& forecast);
PlotSettings readPlot(const SubComObj& plot);
SaveSettings readSave(const SubComObj& save);
// The confidence levels, ascending, each once.
std::vector<double> readLevels(const SubComObj& auxiliary);
// Whether user-missing values are values.
bool readUserMissing(const SubComObj& missing);

}  // namespace vardynamics
