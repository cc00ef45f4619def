// Forecasts of transformed series in the unit of the data.

#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "engine/dynamics/level_forecast.h"
#include "procedures/vardynamics/analysis/draws.h"
#include "procedures/vardynamics/analysis/model.h"

namespace vardynamics {

struct SeriesLevels {
  struct Limits {
    double level = 0.0;  // percent
    std::vector<double> lower = {};
    std::vector<double> upper = {};
  };
  std::vector<double> history = {};  // of the sample's rows
  std::vector<double> values = {};   // H
  bool median = false;               // of the distribution; else values are its mean as well
  std::vector<Limits> limits = {};   // none where the forecast has none

  const Limits& at(double level) const;  // one of those there are
};

// One a series; nothing for a series that is not transformed, or whose last original values are missing.
using Levels = std::vector<std::optional<SeriesLevels>>;

// `values` is H x K.
Levels levelsOf(const ModelData& data, const engine::Matrix& values);

// Gives them limits from the covariance (H x H) of the errors of a series.
struct LevelDistribution {
  double degreesOfFreedom = 0.0;
  std::function<engine::Matrix(std::size_t series)> covariance;
};
void addLimits(const ModelData& data, const engine::Matrix& values, const LevelDistribution& distribution,
               const std::vector<double>& percents, Levels& levels);

// Gives them the percentiles of the drawn paths, each told in levels. `known` holds the future rows of the columns
// beside the lags.
void addDrawnLimits(const ModelData& data, const engine::Matrix& known, const engine::BandOptions& options,
                    Draws& draws, Levels& levels);

}  // namespace vardynamics
