// Reading the subcommands about shocks, decompositions, back-tests and draws.
//
// Every function throws UserError for what a user must change.

#pragma once

#include <cstddef>
#include <vector>

#include "host/command_parser.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

ImpulseSettings readImpulse(const SubComObj& impulse, const ModelSettings& model);
DecompositionSettings readDecomposition(const SubComObj& decomposition);
BacktestSettings readBacktest(const SubComObj& backtest);

// ORDER of the two subcommands, either of which may be null: positions of the endogenous series; empty when neither
// has it.
std::vector<std::size_t> readOrder(const SubComObj* impulse, const SubComObj* decomposition,
                                   const ModelSettings& model);

// Of BOOTSTRAP and of IMPULSE's RESAMPLE; either may be null.
BootstrapSettings readBootstrap(const SubComObj* bootstrap, const SubComObj* impulse);

}  // namespace vardynamics
