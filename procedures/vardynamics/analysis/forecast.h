// The forecast from the end of the sample on, its limits, and what it is conditional on.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/conditional_forecast.h"
#include "engine/dynamics/forecast_limits.h"
#include "procedures/vardynamics/analysis/draws.h"
#include "procedures/vardynamics/analysis/levels.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/data/seasons.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

struct Condition {
  std::vector<engine::HeldValue> held;
  engine::Matrix unconditional;         // H x K
  engine::ChiSquaredTest unusual = {};  // how far the held values lie from the unconditional forecast
};

// Matrices are H x K.
struct Forecast {
  engine::Matrix values;                              // given the held values where there is a condition
  std::optional<engine::Matrix> standardErrors = {};  // with estimation uncertainty; with INTERVAL=ANALYTIC only
  double degreesOfFreedom = 0.0;
  double correctionShare = 0.0;                          // delta; 0: the model has a root on or outside the unit circle
  std::vector<engine::ForecastLimits> drawnLimits = {};  // with INTERVAL=BOOTSTRAP, at the levels of forecastLevels()
  std::optional<Condition> condition = {};
  Levels levels = {};  // of transformed series

  std::size_t horizon() const { return values.rows; }
  bool hasLimits() const { return standardErrors || !drawnLimits.empty(); }
  // At one of forecastLevels(). Needs limits.
  engine::ForecastLimits limits(double level) const;
};

// The levels of the fan, ascending: the given ones, or 50, 80 and the one level.
std::vector<double> forecastLevels(const Settings& settings);

// `known` are the known columns, T values each and those of the horizon. Throws UserError when the limits cannot be
// computed or two conditions contradict each other, Stopped where the work was stopped.
Forecast forecastModel(const Settings& settings, const Model& model, const ModelData& data, const SeriesList& known,
                       std::size_t horizon, Draws& draws);

}  // namespace vardynamics
