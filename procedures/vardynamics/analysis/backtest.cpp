#include "procedures/vardynamics/analysis/backtest.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "procedures/vardynamics/analysis/backtest_scores.h"
#include "procedures/vardynamics/analysis/regressors.h"
#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

constexpr std::int64_t kMostOrigins = 40;  // unless asked for more

// Rows that the first window leaves for the forecasts: K more rows than regressors give a covariance of full rank.
std::int64_t spareRows(const Model& model, const ModelData& data) {
  const engine::FittedVar& fit = model.fit;
  const std::size_t needed = fit.firstRow + engine::regressorCount(fit) + engine::seriesCount(fit);
  return std::ssize(data.sample.endogenous.front()) - static_cast<std::int64_t>(needed);
}

std::size_t checkedOrigins(const Model& model, const ModelData& data, const BacktestSettings& settings) {
  const std::int64_t spare = spareRows(model, data);
  if (spare < 1) {
    fail("The sample is too short for a back-test of a model with lag ^1. Use a smaller lag, or leave out BACKTEST.",
         {std::to_string(model.lag())});
  }
  if (spare < settings.horizon) {
    fail("The sample is too short for a back-test of ^1 periods. Give HORIZON=^2.",
         {std::to_string(settings.horizon), std::to_string(spare)});
  }
  const std::int64_t most = (spare - settings.horizon) / settings.step + 1;
  if (settings.origins && *settings.origins > most) {
    fail("The sample is too short for a back-test from ^1 origins, ^2 rows apart, over ^3 periods. Give ORIGINS=^4.",
         {std::to_string(*settings.origins), std::to_string(settings.step), std::to_string(settings.horizon),
          std::to_string(most)});
  }
  const auto rows = static_cast<std::int64_t>(engine::rowCount(model.fit));
  const std::int64_t customary = std::clamp<std::int64_t>(rows / 4, 1, kMostOrigins);
  return static_cast<std::size_t>(settings.origins ? *settings.origins : std::min(customary, most));
}

std::size_t deterministicColumns(const ModelData& data) {
  const auto lagsOfEach = static_cast<std::size_t>(data.settings.exogenousLags) + 1;
  return data.known.size() - data.settings.exogenous.names.size() * lagsOfEach;
}

[[noreturn]] void refuseOrigin(const engine::Backtest& result, const Observations& observations) {
  const std::size_t origin = result.error->origin;
  const std::string period = observations.label(std::min(origin, observations.sample.rows() - 1));
  if (result.forecasts.empty()) {
    fail(
        "The model cannot be fitted to the rows before ^1 alone: regressors or residuals are linearly dependent there. "
        "Leave out BACKTEST.",
        {period});
  }
  fail(
      "The model cannot be fitted to the rows before ^1 alone: regressors or residuals are linearly dependent there. "
      "Give ORIGINS=^2.",
      {period, std::to_string(result.forecasts.size())});
}

}  // namespace

Backtest backtestModel(const Model& model, const ModelData& data, const Observations& observations,
                       const BacktestSettings& settings, const std::vector<double>& levels, const Work& work) {
  const auto terms = namedTerms(data.settings, data.cycle);
  const engine::BacktestOptions options{.origins = checkedOrigins(model, data, settings),
                                        .horizon = static_cast<std::size_t>(settings.horizon),
                                        .step = static_cast<std::size_t>(settings.step),
                                        .rolling = settings.rolling,
                                        .namedTerms = terms.has_value(),
                                        .terms = terms.value_or(engine::KnownTerms{}),
                                        .ownTerms = deterministicColumns(data),
                                        .cycle = observations.cycle,
                                        .progress = work.progress};
  engine::Backtest result = engine::backtest(model.fit, {data.sample.endogenous, data.known}, options);
  if (result.stopped) throw Stopped();
  if (result.error) refuseOrigin(result, observations);
  Backtest backtest{.forecasts = std::move(result.forecasts)};
  const ScoreOptions scoring{.levels = levels, .cycle = observations.cycle, .step = options.step};
  for (std::size_t i = 0; i < data.sample.endogenous.size(); ++i) {
    backtest.series.push_back(scoreSeries(backtest.forecasts, data.sample.endogenous[i], i, scoring));
  }
  return backtest;
}

}  // namespace vardynamics
