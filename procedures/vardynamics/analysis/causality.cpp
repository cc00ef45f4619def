#include "procedures/vardynamics/analysis/causality.h"

#include <cstdint>
#include <string>

#include "procedures/vardynamics/analysis/estimation_faults.h"
#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

engine::GrangerCausality testGranger(const Model& model, const ModelData& data, std::int32_t augment) {
  if (augment == 0) return engine::grangerCausality(model.fit, model.lag());
  const auto lag = static_cast<std::int32_t>(model.lag());
  const std::int32_t usable = largestUsableLag(shapeOf(data));
  if (augment > usable - lag) {
    fail("The sample is too short for AUGMENT=^1 beside ^2 lags. Give AUGMENT=^3.",
         {std::to_string(augment), std::to_string(lag), std::to_string(usable - lag)});
  }
  return engine::grangerCausality(fitLag(data, lag + augment, "AUGMENT"), model.lag());
}

}  // namespace

Causality testCausality(const Model& model, const ModelData& data, const CausalitySettings& settings) {
  Causality causality{.testedLags = model.lag(),
                      .fittedLags = model.lag() + static_cast<std::size_t>(settings.augment)};
  if (settings.granger) causality.granger = testGranger(model, data, settings.augment);
  if (!settings.instantaneous) return causality;
  for (std::size_t i = 0; i < data.sample.endogenous.size(); ++i) {
    causality.instantaneous.push_back(engine::instantaneousCausality(model.fit, i));
  }
  return causality;
}

}  // namespace vardynamics
