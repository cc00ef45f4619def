// What the model would have said at many origins of the sample, beside simple rivals.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/backtest.h"
#include "engine/dynamics/forecast_evaluation.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/analysis/work.h"
#include "procedures/vardynamics/syntax/observations.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Forecasts of one series at one horizon.
struct ForecastScore {
  engine::ForecastAccuracy accuracy;
  double scaledError = 0.0;  // MASE
};

struct ModelScore {
  ForecastScore errors;
  double rankedProbability = 0.0;        // CRPS
  std::vector<std::size_t> inside = {};  // the limits of each level
};

struct RivalScore {
  ForecastScore errors;
  double skill = 0.0;  // 1 - MSE of the model / MSE of the rival; NaN where the rival has no error
  std::optional<engine::ForecastComparison> dieboldMariano = {};
  std::optional<engine::ForecastComparison> clarkWest = {};  // of a rival that the model nests
};

enum class Rival { noChange, seasonal, autoregression };

struct RivalScores {
  Rival rival = Rival::noChange;
  std::vector<RivalScore> horizons = {};
};

// Of one series, horizons 1..H.
struct SeriesScores {
  std::vector<ModelScore> model = {};
  std::vector<RivalScores> rivals = {};  // seasonal only where the dates have a cycle
};

struct Backtest {
  std::vector<engine::OriginForecast> forecasts = {};  // ascending
  std::vector<SeriesScores> series = {};

  std::size_t origins() const { return forecasts.size(); }
  std::size_t horizon() const { return forecasts.front().values.rows; }
};

// Scores limits at `levels`, in percent. Throws UserError when the sample does not allow the origins, Stopped when the
// work was stopped.
Backtest backtestModel(const Model& model, const ModelData& data, const Observations& observations,
                       const BacktestSettings& settings, const std::vector<double>& levels, const Work& work);

}  // namespace vardynamics
