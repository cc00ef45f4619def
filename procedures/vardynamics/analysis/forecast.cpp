#include "procedures/vardynamics/analysis/forecast.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/dynamics/forecast_path.h"
#include "engine/dynamics/lag_matrices.h"
#include "procedures/vardynamics/analysis/regressors.h"
#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

[[noreturn]] void refuseDependentShocks() {
  fail("The forecast has no limits: the residuals are linearly dependent to rounding. Leave out a series.");
}

std::vector<engine::HeldValue> heldValues(const Sample& sample, std::size_t horizon) {
  std::vector<engine::HeldValue> held;
  for (std::size_t step = 0; step < std::min(horizon, sample.futureRows()); ++step) {
    for (std::size_t i = 0; i < sample.futureEndogenous.size(); ++i) {
      const double value = sample.futureEndogenous[i][step];
      if (!std::isnan(value)) held.push_back({.horizon = step + 1, .series = i, .value = value});
    }
  }
  return held;
}

void holdValues(const Model& model, const ModelData& data, const engine::ForecastErrors& errors, Forecast& forecast) {
  const auto shocks = engine::shockErrors(engine::lagMatrices(model.fit), model.covariance, forecast.horizon());
  Condition condition{.held = heldValues(data.sample, forecast.horizon()), .unconditional = forecast.values};
  auto result = shocks ? engine::conditionalForecast(forecast.values, *shocks, errors, condition.held) : std::nullopt;
  if (!result) refuseDependentShocks();
  condition.unusual = result->unusual;
  forecast.values = std::move(result->values);
  forecast.standardErrors = std::move(result->standardErrors);
  forecast.condition = std::move(condition);
}

}  // namespace

Forecast forecastModel(const Model& model, const ModelData& data, const SeriesList& known, std::size_t horizon,
                       const ForecastSettings& settings) {
  const engine::VarSample sample{data.sample.endogenous, known};
  if (settings.interval == Interval::none && !settings.conditional) {
    return {.values = engine::forecastPath(model.fit, sample, data.sample.rows(), horizon).values};
  }
  const auto terms = namedTerms(data.settings, data.cycle);
  auto analytic = engine::analyticForecast(model.fit, sample, horizon, terms ? &*terms : nullptr);
  if (!analytic) refuseDependentShocks();
  Forecast forecast{.values = std::move(analytic->values),
                    .standardErrors = std::move(analytic->standardErrors),
                    .degreesOfFreedom = analytic->degreesOfFreedom,
                    .correctionShare = analytic->model.share};
  if (settings.conditional) holdValues(model, data, analytic->errors, forecast);
  if (settings.interval == Interval::none) forecast.standardErrors.reset();
  return forecast;
}

}  // namespace vardynamics
