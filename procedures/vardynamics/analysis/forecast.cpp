#include "procedures/vardynamics/analysis/forecast.h"

#include <algorithm>
#include <cmath>
#include <set>
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

// The future rows of the columns beside the lags, constant first.
engine::Matrix futureTerms(const ModelData& data, const SeriesList& known, std::size_t horizon) {
  const std::size_t constant = hasConstant(data.settings) ? 1 : 0;
  engine::Matrix terms(horizon, constant + known.size());
  for (std::size_t h = 0; h < horizon; ++h) {
    if (constant > 0) terms(h, 0) = 1.0;
    for (std::size_t j = 0; j < known.size(); ++j) terms(h, constant + j) = known[j][data.sample.rows() + h];
  }
  return terms;
}

// One H x K matrix from a K x 1 matrix a horizon.
engine::Matrix stacked(const std::vector<engine::Matrix>& horizons) {
  engine::Matrix result(horizons.size(), horizons.front().rows);
  for (std::size_t h = 0; h < horizons.size(); ++h) {
    for (std::size_t i = 0; i < result.columns; ++i) result(h, i) = horizons[h](i, 0);
  }
  return result;
}

std::vector<engine::ForecastLimits> drawLimits(const Settings& settings, const ModelData& data, const SeriesList& known,
                                               std::size_t horizon, Draws& draws) {
  engine::BandOptions options = draws.bandOptions(settings.forecast->simultaneous);
  options.levels = forecastLevels(settings);
  auto bands = engine::forecastBands(draws.get(), data.sample.endogenous, futureTerms(data, known, horizon), options);
  std::vector<engine::ForecastLimits> limits;
  for (const engine::Band& band : draws.required(std::move(bands), horizon)) {
    limits.push_back({band.level, stacked(band.lower), stacked(band.upper)});
  }
  return limits;
}

}  // namespace

engine::ForecastLimits Forecast::limits(double level) const {
  if (standardErrors) return engine::studentLimits(values, *standardErrors, degreesOfFreedom, level);
  return *std::ranges::find(drawnLimits, level, &engine::ForecastLimits::level);
}

std::vector<double> forecastLevels(const Settings& settings) {
  std::set<double> levels(settings.levels.begin(), settings.levels.end());
  if (levels.size() == 1) levels.insert({50.0, 80.0});
  return {levels.begin(), levels.end()};
}

Forecast forecastModel(const Settings& settings, const Model& model, const ModelData& data, const SeriesList& known,
                       std::size_t horizon, Draws& draws) {
  const engine::VarSample sample{data.sample.endogenous, known};
  const Interval interval = settings.forecast->interval;
  const bool conditional = settings.forecast->conditional;
  if (interval != Interval::analytic && !conditional) {
    Forecast forecast{.values = engine::forecastPath(model.fit, sample, data.sample.rows(), horizon).values};
    if (interval == Interval::bootstrap) forecast.drawnLimits = drawLimits(settings, data, known, horizon, draws);
    return forecast;
  }
  const auto terms = namedTerms(data.settings, data.cycle);
  auto analytic = engine::analyticForecast(model.fit, sample, horizon, terms ? &*terms : nullptr);
  if (!analytic) refuseDependentShocks();
  Forecast forecast{.values = std::move(analytic->values),
                    .standardErrors = std::move(analytic->standardErrors),
                    .degreesOfFreedom = analytic->degreesOfFreedom,
                    .correctionShare = analytic->model.share};
  if (conditional) holdValues(model, data, analytic->errors, forecast);
  if (interval == Interval::none) forecast.standardErrors.reset();
  return forecast;
}

}  // namespace vardynamics
