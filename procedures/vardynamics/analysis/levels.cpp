#include "procedures/vardynamics/analysis/levels.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "engine/dynamics/bootstrap_bands.h"

namespace vardynamics {
namespace {

engine::Change changeOf(procedures::ScaleChange change) {
  switch (change) {
    case procedures::ScaleChange::logarithm:
      return engine::Change::logarithm;
    case procedures::ScaleChange::logDifference:
      return engine::Change::logDifference;
    case procedures::ScaleChange::percentage:
      return engine::Change::percentage;
    case procedures::ScaleChange::difference:
      break;
  }
  return engine::Change::difference;
}

std::span<const double> sampleValues(const procedures::OriginalScale& original, const Sample& sample) {
  return std::span(original.values).subspan(sample.cases.first, sample.rows());
}

// Nothing when the values that the path goes on from are not known.
std::optional<engine::LevelScale> scaleOf(const ModelData& data, std::size_t series) {
  if (series >= data.originals.size() || !data.originals[series]) return std::nullopt;
  const procedures::OriginalScale& original = *data.originals[series];
  if (original.lag > data.sample.rows()) return std::nullopt;
  const auto last = sampleValues(original, data.sample).last(original.lag);
  if (std::ranges::any_of(last, [](double value) { return std::isnan(value); })) return std::nullopt;
  return engine::LevelScale{changeOf(original.change), original.factor, original.lag, {last.begin(), last.end()}};
}

}  // namespace

const SeriesLevels::Limits& SeriesLevels::at(double level) const {
  return *std::ranges::find(limits, level, &Limits::level);
}

Levels levelsOf(const ModelData& data, const engine::Matrix& values) {
  Levels levels(data.originals.size());
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const auto scale = scaleOf(data, i);
    if (!scale) continue;
    const auto history = sampleValues(*data.originals[i], data.sample);
    levels[i] = SeriesLevels{.history = {history.begin(), history.end()},
                             .values = engine::levelPath(engine::columnOf(values, i), *scale),
                             .median = scale->change != engine::Change::difference};
  }
  return levels;
}

void addLimits(const ModelData& data, const engine::Matrix& values, const LevelDistribution& distribution,
               const std::vector<double>& percents, Levels& levels) {
  for (std::size_t i = 0; i < levels.size(); ++i) {
    if (!levels[i]) continue;
    const auto forecast =
        engine::levelForecast(engine::columnOf(values, i), distribution.covariance(i), *scaleOf(data, i));
    for (const double percent : percents) {
      auto limits = forecast.limits(distribution.degreesOfFreedom, percent);
      levels[i]->limits.push_back({percent, std::move(limits.lower), std::move(limits.upper)});
    }
  }
}

void addDrawnLimits(const ModelData& data, const engine::Matrix& known, const engine::BandOptions& options,
                    Draws& draws, Levels& levels) {
  std::vector<std::optional<engine::LevelScale>> scales;
  for (std::size_t i = 0; i < levels.size(); ++i) scales.push_back(scaleOf(data, i));
  if (std::ranges::none_of(scales, [](const auto& scale) { return scale.has_value(); })) return;
  const engine::PathChange change = [&](std::size_t series, std::span<double> path) {
    if (scales[series]) std::ranges::copy(engine::levelPath(path, *scales[series]), path.begin());
  };
  auto drawn = engine::forecastBands(draws.get(), data.sample.endogenous, known, options, change);
  for (const engine::Band& band : draws.required(std::move(drawn), known.rows)) {
    for (std::size_t i = 0; i < levels.size(); ++i) {
      if (!levels[i]) continue;
      SeriesLevels::Limits& limits = levels[i]->limits.emplace_back(SeriesLevels::Limits{band.level});
      for (const engine::Matrix& lower : band.lower) limits.lower.push_back(lower(i, 0));
      for (const engine::Matrix& upper : band.upper) limits.upper.push_back(upper(i, 0));
    }
  }
}

}  // namespace vardynamics
