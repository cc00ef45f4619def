#include "procedures/vardynamics/analysis/analysis.h"

#include <utility>

#include "procedures/vardynamics/data/known_columns.h"

namespace vardynamics {
namespace {

// The first `count` values of every column.
SeriesList shortened(const SeriesList& columns, std::size_t count) {
  SeriesList result;
  for (const auto& column : columns) {
    result.emplace_back(column.begin(), column.begin() + static_cast<std::ptrdiff_t>(count));
  }
  return result;
}

}  // namespace

Analysis analyse(const Settings& settings, const Observations& observations, const Work& work) {
  if (needsDraws(settings)) requireReplications(settings);
  const KnownColumnOptions options{.trend = settings.model.deterministic == Deterministic::trend,
                                   .seasons = observations.seasons,
                                   .exogenousLags = static_cast<std::size_t>(settings.model.exogenousLags)};
  const SeriesList known = knownColumns(observations.sample, observations.horizon, options);
  const ModelData data{.settings = settings.model,
                       .sample = observations.sample,
                       .known = shortened(known, observations.sample.rows()),
                       .cycle = observations.seasons.cycle,
                       .originals = observations.originals};
  Analysis analysis{.model = estimateModel(data, settings.level())};
  analysis.roots = engine::rootsOf(engine::lagMatrices(analysis.model.fit)).value_or(std::vector<engine::Root>{});
  if (settings.tests) analysis.tests = testResiduals(analysis.model, data, *settings.tests);
  if (settings.causality) analysis.causality = testCausality(analysis.model, data, *settings.causality);
  if (needsDraws(settings)) requireMemory(settings, analysis.model.fit, observations.horizon);
  Draws draws(settings, analysis.model, data, work);
  if (settings.forecast) {
    analysis.forecast = forecastModel(settings, analysis.model, data, known, observations.horizon, draws);
  }
  if (settings.impulse) analysis.impulse = findResponses(settings, analysis.model, data, draws);
  if (settings.save && settings.save->shocks) {
    analysis.shocks = orthogonalShocks(analysis.model, settings.order);
  }
  if (settings.decomposition) {
    analysis.decomposition = decompose(analysis.model, data, *settings.decomposition, settings.order, draws);
  }
  if (settings.backtest) {
    analysis.backtest = backtestModel(analysis.model, data, observations, *settings.backtest, settings.levels, work);
  }
  analysis.draws = draws.count();
  return analysis;
}

}  // namespace vardynamics
