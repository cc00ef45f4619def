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

// What the held values explain, as conditionalForecast() has it.
engine::Matrix holdValues(const Model& model, const ModelData& data, const engine::ForecastErrors& errors,
                          Forecast& forecast) {
  const auto shocks = engine::shockErrors(engine::lagMatrices(model.fit), model.covariance, forecast.horizon());
  Condition condition{.held = heldValues(data.sample, forecast.horizon()), .unconditional = forecast.values};
  auto result = shocks ? engine::conditionalForecast(forecast.values, *shocks, errors, condition.held) : std::nullopt;
  if (!result) refuseDependentShocks();
  condition.unusual = result->unusual;
  forecast.values = std::move(result->values);
  forecast.standardErrors = std::move(result->standardErrors);
  forecast.condition = std::move(condition);
  return std::move(result->explained);
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

void drawLimits(const Settings& settings, const ModelData& data, const SeriesList& known, Draws& draws,
                Forecast& forecast) {
  engine::BandOptions options = draws.bandOptions(settings.forecast->simultaneous);
  options.levels = forecastLevels(settings);
  const engine::Matrix terms = futureTerms(data, known, forecast.horizon());
  auto bands = engine::forecastBands(draws.get(), data.sample.endogenous, terms, options);
  for (const engine::Band& band : draws.required(std::move(bands), forecast.horizon())) {
    forecast.drawnLimits.push_back({band.level, stacked(band.lower), stacked(band.upper)});
  }
  addDrawnLimits(data, terms, options, draws, forecast.levels);
}

// Of the errors of one series at all horizons, as far as the held values leave it.
engine::Matrix unexplainedCovariance(const engine::ForecastErrors& errors, const engine::Matrix& explained,
                                     std::size_t series) {
  engine::Matrix covariance = engine::seriesCovariance(errors, series);
  const std::size_t count = errors.shocks.front().rows;
  for (std::size_t h = 0; h < covariance.rows; ++h) {
    for (std::size_t g = 0; g < covariance.columns; ++g) {
      for (std::size_t c = 0; c < explained.columns; ++c) {
        covariance(h, g) -= explained(h * count + series, c) * explained(g * count + series, c);
      }
    }
  }
  return covariance;
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
    forecast.levels = levelsOf(data, forecast.values);
    if (interval == Interval::bootstrap) drawLimits(settings, data, known, draws, forecast);
    return forecast;
  }
  const auto terms = namedTerms(data.settings, data.cycle);
  auto analytic = engine::analyticForecast(model.fit, sample, horizon, terms ? &*terms : nullptr);
  if (!analytic) refuseDependentShocks();
  Forecast forecast{.values = std::move(analytic->values),
                    .standardErrors = std::move(analytic->standardErrors),
                    .degreesOfFreedom = analytic->degreesOfFreedom,
                    .correctionShare = analytic->model.share};
  const engine::Matrix explained = conditional ? holdValues(model, data, analytic->errors, forecast)
                                               : engine::Matrix(forecast.values.values.size(), 0);
  forecast.levels = levelsOf(data, forecast.values);
  if (interval == Interval::none) {
    forecast.standardErrors.reset();
  } else {
    addLimits(data, forecast.values,
              {forecast.degreesOfFreedom,
               [&](std::size_t series) { return unexplainedCovariance(analytic->errors, explained, series); }},
              forecastLevels(settings), forecast.levels);
  }
  return forecast;
}

}  // namespace vardynamics
