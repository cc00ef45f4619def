// Everything that a run finds: one model, one lag order, one sample.

#pragma once

#include <optional>
#include <vector>

#include "engine/dynamics/roots.h"
#include "procedures/vardynamics/analysis/backtest.h"
#include "procedures/vardynamics/analysis/causality.h"
#include "procedures/vardynamics/analysis/decomposition.h"
#include "procedures/vardynamics/analysis/draws.h"
#include "procedures/vardynamics/analysis/forecast.h"
#include "procedures/vardynamics/analysis/impulse.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/analysis/residual_tests.h"
#include "procedures/vardynamics/syntax/observations.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// What was not asked for is absent.
struct Analysis {
  Model model;
  std::vector<engine::Root> roots = {};  // by falling modulus
  std::optional<ResidualTests> tests = {};
  std::optional<Causality> causality = {};
  std::optional<Forecast> forecast = {};
  std::optional<Decomposition> decomposition = {};
  std::optional<Backtest> backtest = {};
  Impulse impulse = {};
  std::optional<engine::Matrix> shocks = {};  // the orthogonal ones of the regression's rows, n x K; where saved
  std::optional<DrawCount> draws = {};        // where bands were read from them
};

// Throws UserError for what the sample does not allow, Stopped where the work was stopped.
Analysis analyse(const Settings& settings, const Observations& observations, const Work& work = {});

}  // namespace vardynamics
