// What the tests of this folder run: commands over twelve quarters, with everything that a run writes.

#pragma once

#include <functional>
#include <string>

#include "tests/recording/recording_host.h"

namespace recording {

// Gives the host series a and b, an exogenous x, date variables from 1990Q1, and PREDICT THRU the quarter named.
void giveQuarters(Host& host, double thruYear, double thruQuarter);

// MODEL of a and b with lag 1 and METHOD.
void giveModel(Host& host);

// Every subcommand and every keyword.
void giveEverything(Host& host);

// VARDYNAMICS with every subcommand, over the quarters and two to come, of which the exogenous series is known.
void giveEverySubcommand(Host& host);

// Runs the work and returns its lines in the order written, those of the standard error stream after "! ".
std::string traceOf(const std::function<void()>& work);

}  // namespace recording
