#include "engine/dynamics/backtest.h"

#include <algorithm>
#include <utility>

#include "engine/dynamics/forecast_limits.h"
#include "engine/dynamics/forecast_path.h"
#include "engine/dynamics/rolling_regression.h"
#include "engine/regression/var_estimation.h"

namespace engine {
namespace {

// The part of the model that one series alone would have: its own lags and the first known columns.
struct Rival {
  FittedVar fit;
  VarSample sample;
};

// Nothing when an autoregression cannot be fitted.
std::optional<std::vector<Rival>> rivals(const FittedVar& fit, const VarSample& sample, std::size_t ownTerms) {
  std::vector<Rival> result;
  SeriesList known(sample.known.begin(), sample.known.begin() + static_cast<std::ptrdiff_t>(ownTerms));
  for (std::vector<double>& column : known) column.resize(sample.series.front().size());
  const auto lag = static_cast<std::int32_t>(fit.lag);
  for (std::size_t i = 0; i < sample.series.size(); ++i) {
    const VarEstimation estimation =
        estimateVar({{sample.series[i]}, known}, {.minLag = lag,
                                                  .maxLag = lag,
                                                  .constant = fit.constant,
                                                  .firstRow = static_cast<std::int64_t>(fit.firstRow),
                                                  .fullInverse = true,
                                                  .allowSingularCovariance = true});
    if (estimation.error) return std::nullopt;
    result.push_back({fittedVar(estimation, lag), {sample.series.subspan(i, 1), sample.known.first(ownTerms)}});
  }
  return result;
}

// A model refitted on the rows before each origin.
class RollingModel {
 public:
  RollingModel(const FittedVar& fit, const VarSample& sample) : fit_(fit), sample_(sample), regression_(fit, sample) {}

  bool moveTo(std::size_t firstOrigin, std::size_t origin, bool rolling) {
    return regression_.moveTo(rolling ? origin - firstOrigin : 0, origin - fit_.firstRow);
  }

  Matrix pointForecast(std::size_t origin, std::size_t horizon) const {
    FittedVar fit;
    fit.lag = fit_.lag;
    fit.constant = fit_.constant;
    fit.coefficients = regression_.coefficients();
    return forecastPath(fit, sample_, origin, horizon).values;
  }

  FittedVar fit() const { return regression_.fit(); }

 private:
  const FittedVar& fit_;
  VarSample sample_;
  RollingRegression regression_;
};

class Run {
 public:
  Run(const FittedVar& fit, const VarSample& sample, const BacktestOptions& options, std::span<const Rival> rivals)
      : sample_(sample), options_(options), model_(fit, sample) {
    for (const Rival& rival : rivals) rivals_.emplace_back(rival.fit, rival.sample);
  }

  std::optional<OriginForecast> forecastAt(std::size_t firstOrigin, std::size_t origin) {
    OriginForecast result;
    result.origin = origin;
    if (!model_.moveTo(firstOrigin, origin, options_.rolling)) return std::nullopt;
    if (!options_.limits) {
      result.values = model_.pointForecast(origin, options_.horizon);
    } else if (!forecastWithErrors(origin, result)) {
      return std::nullopt;
    }
    if (!forecastRivals(firstOrigin, origin, result)) return std::nullopt;
    result.noChange = repeated(origin, 1);
    if (options_.cycle > 1 && origin >= options_.cycle) result.seasonal = repeated(origin, options_.cycle);
    return result;
  }

 private:
  bool forecastWithErrors(std::size_t origin, OriginForecast& result) const {
    auto forecast = analyticForecast(model_.fit(), sample_, origin, options_.horizon,
                                     options_.namedTerms ? &options_.terms : nullptr);
    if (!forecast) return false;
    result.values = std::move(forecast->values);
    result.standardErrors = std::move(forecast->standardErrors);
    result.degreesOfFreedom = forecast->degreesOfFreedom;
    return true;
  }

  bool forecastRivals(std::size_t firstOrigin, std::size_t origin, OriginForecast& result) {
    result.autoregression = Matrix(options_.horizon, rivals_.size());
    for (std::size_t i = 0; i < rivals_.size(); ++i) {
      if (!rivals_[i].moveTo(firstOrigin, origin, options_.rolling)) return false;
      const Matrix values = rivals_[i].pointForecast(origin, options_.horizon);
      for (std::size_t h = 0; h < options_.horizon; ++h) result.autoregression(h, i) = values(h, 0);
    }
    return true;
  }

  // The last `cycle` observations over and over.
  Matrix repeated(std::size_t origin, std::size_t cycle) const {
    Matrix values(options_.horizon, sample_.series.size());
    for (std::size_t h = 0; h < values.rows; ++h) {
      for (std::size_t i = 0; i < values.columns; ++i) {
        values(h, i) = sample_.series[i][origin - cycle + h % cycle];
      }
    }
    return values;
  }

  const VarSample& sample_;
  const BacktestOptions& options_;
  RollingModel model_;
  std::vector<RollingModel> rivals_;
};

}  // namespace

Backtest backtest(const FittedVar& fit, const VarSample& sample, const BacktestOptions& options) {
  Backtest result;
  const std::size_t length = sample.series.front().size();
  const std::size_t span = options.horizon + (options.origins - 1) * options.step;
  if (length < span + fit.firstRow + regressorCount(fit) + 1) {
    result.error = BacktestError{};
    return result;
  }
  const std::size_t firstOrigin = length - span;
  const auto alone = rivals(fit, sample, options.ownTerms);
  if (!alone) {
    result.error = BacktestError{length};
    return result;
  }
  Run run(fit, sample, options, *alone);
  // From the last origin to the first: the windows start at the whole sample.
  for (std::size_t o = options.origins; o-- > 0;) {
    const std::size_t origin = firstOrigin + o * options.step;
    auto forecast = run.forecastAt(firstOrigin, origin);
    if (!forecast) {
      result.error = BacktestError{origin};
      break;
    }
    result.forecasts.push_back(std::move(*forecast));
    const double done = static_cast<double>(options.origins - o) / static_cast<double>(options.origins);
    if (options.progress && !options.progress(done)) {
      result.stopped = true;
      break;
    }
  }
  std::ranges::reverse(result.forecasts);
  return result;
}

}  // namespace engine
