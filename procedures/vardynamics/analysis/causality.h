// What leads what, and which shocks come together.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/causality.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Those that were asked for.
struct Causality {
  std::optional<engine::GrangerCausality> granger = {};
  std::size_t testedLags = 0;
  std::size_t fittedLags = 0;                                             // more than tested with AUGMENT
  std::vector<std::optional<engine::ChiSquaredTest>> instantaneous = {};  // of each series; empty unless asked for
};

// Throws UserError when the sample is too short for AUGMENT.
Causality testCausality(const Model& model, const ModelData& data, const CausalitySettings& settings);

}  // namespace vardynamics
