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

Analysis analyse(const Settings& settings, const Observations& observations) {
  const KnownColumnOptions options{.trend = settings.model.deterministic == Deterministic::trend,
                                   .seasons = observations.seasons,
                                   .exogenousLags = static_cast<std::size_t>(settings.model.exogenousLags)};
  const SeriesList known = knownColumns(observations.sample, observations.horizon, options);
  const ModelData data{.settings = settings.model,
                       .sample = observations.sample,
                       .known = shortened(known, observations.sample.rows()),
                       .cycle = observations.seasons.cycle};
  Analysis analysis{.model = estimateModel(data, settings.level())};
  analysis.roots = engine::rootsOf(engine::lagMatrices(analysis.model.fit)).value_or(std::vector<engine::Root>{});
  if (settings.tests) analysis.tests = testResiduals(analysis.model, data, *settings.tests);
  if (settings.causality) analysis.causality = testCausality(analysis.model, data, *settings.causality);
  if (settings.forecast) {
    analysis.forecast = forecastModel(analysis.model, data, known, observations.horizon, *settings.forecast);
  }
  return analysis;
}

}  // namespace vardynamics
