#include "procedures/vardynamics/analysis/backtest_scores.h"

#include <algorithm>
#include <limits>

#include "engine/regression/inference.h"

namespace vardynamics {
namespace {

using engine::OriginForecast;
using Values = engine::Matrix OriginForecast::*;

class SeriesScorer {
 public:
  SeriesScorer(std::span<const OriginForecast> forecasts, const std::vector<double>& observed, std::size_t place,
               const ScoreOptions& options)
      : forecasts_(forecasts),
        observed_(observed),
        place_(place),
        options_(options),
        scale_(engine::naiveScale(observed, forecasts.front().origin, std::max<std::size_t>(options.cycle, 1))) {}

  ModelScore scoreModel(std::size_t h) const {
    const std::vector<double> errors = errorsOf(&OriginForecast::values, h);
    const std::vector<double> spread = columnAt(&OriginForecast::standardErrors, h);
    ModelScore score{.errors = scoreErrors(errors), .rankedProbability = engine::normalScore(errors, spread)};
    for (const double level : options_.levels) score.inside.push_back(countInside(errors, spread, level));
    return score;
  }

  RivalScore scoreRival(Values rival, std::size_t h) const {
    const std::vector<double> errors = errorsOf(&OriginForecast::values, h);
    const std::vector<double> others = errorsOf(rival, h);
    // Forecasts h + 1 ahead from origins `step` apart have shocks in common with so many neighbours.
    const std::size_t overlap = h / options_.step;
    RivalScore score{.errors = scoreErrors(others), .dieboldMariano = engine::dieboldMariano(others, errors, overlap)};
    const double ratio = engine::forecastAccuracy(errors).rootMeanSquare / score.errors.accuracy.rootMeanSquare;
    const bool exact = score.errors.accuracy.rootMeanSquare == 0.0;
    score.skill = exact ? std::numeric_limits<double>::quiet_NaN() : 1.0 - ratio * ratio;
    if (rival == &OriginForecast::autoregression) score.clarkWest = engine::clarkWest(others, errors, overlap);
    return score;
  }

 private:
  std::vector<double> columnAt(Values values, std::size_t h) const {
    std::vector<double> column;
    for (const OriginForecast& one : forecasts_) column.push_back((one.*values)(h, place_));
    return column;
  }

  std::vector<double> errorsOf(Values values, std::size_t h) const {
    std::vector<double> errors = columnAt(values, h);
    for (std::size_t o = 0; o < errors.size(); ++o) errors[o] = observed_[forecasts_[o].origin + h] - errors[o];
    return errors;
  }

  ForecastScore scoreErrors(std::span<const double> errors) const {
    ForecastScore score{.accuracy = engine::forecastAccuracy(errors)};
    score.scaledError = score.accuracy.meanAbsolute / scale_;
    return score;
  }

  // Each origin's limits have their own degrees of freedom.
  std::size_t countInside(std::span<const double> errors, std::vector<double> spread, double level) const {
    for (std::size_t o = 0; o < spread.size(); ++o) {
      spread[o] *= engine::studentLimit(level, forecasts_[o].degreesOfFreedom);
    }
    return engine::coveredCount(errors, spread, 1.0);
  }

  std::span<const OriginForecast> forecasts_;
  const std::vector<double>& observed_;
  std::size_t place_;
  const ScoreOptions& options_;
  double scale_;
};

struct NamedRival {
  Rival rival;
  Values values;
};

constexpr NamedRival kRivals[] = {{Rival::noChange, &OriginForecast::noChange},
                                  {Rival::seasonal, &OriginForecast::seasonal},
                                  {Rival::autoregression, &OriginForecast::autoregression}};

}  // namespace

SeriesScores scoreSeries(std::span<const OriginForecast> forecasts, const std::vector<double>& observed,
                         std::size_t place, const ScoreOptions& options) {
  const SeriesScorer scorer(forecasts, observed, place, options);
  const std::size_t horizon = forecasts.front().values.rows;
  SeriesScores scores;
  for (std::size_t h = 0; h < horizon; ++h) scores.model.push_back(scorer.scoreModel(h));
  for (const NamedRival& one : kRivals) {
    // The first origins may lie within the first cycle.
    if ((forecasts.front().*one.values).rows == 0) continue;
    RivalScores& rival = scores.rivals.emplace_back(RivalScores{.rival = one.rival});
    for (std::size_t h = 0; h < horizon; ++h) rival.horizons.push_back(scorer.scoreRival(one.values, h));
  }
  return scores;
}

}  // namespace vardynamics
