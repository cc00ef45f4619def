// How good the forecasts of a back-test were.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "procedures/vardynamics/analysis/backtest.h"

namespace vardynamics {

struct ScoreOptions {
  std::vector<double> levels = {};  // of limits, in percent
  std::size_t cycle = 0;            // of the dates; 0: none
  std::size_t step = 1;             // rows between the origins
};

// Of the series at a place in the forecasts, with its observations.
SeriesScores scoreSeries(std::span<const engine::OriginForecast> forecasts, const std::vector<double>& observed,
                         std::size_t place, const ScoreOptions& options);

}  // namespace vardynamics
