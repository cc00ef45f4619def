#include "engine/dynamics/backtest.h"

#include <algorithm>
#include <utility>

#include "engine/dynamics/forecast_limits.h"
#include "engine/dynamics/forecast_path.h"
#include "engine/dynamics/rolling_regression.h"

namespace engine {
namespace {

std::vector<std::vector<double>> targetsOf(const FittedVar& layout, const VarSample& sample) {
  std::vector<std::vector<double>> targets;
  for (const std::vector<double>& series : sample.series) {
    const auto start = series.begin() + static_cast<std::ptrdiff_t>(layout.firstRow);
    targets.emplace_back(start, start + static_cast<std::ptrdiff_t>(rowCount(layout)));
  }
  return targets;
}

// A regression of the model's kind on the whole sample, refitted on the rows before each origin.
class RollingModel {
 public:
  RollingModel(const FittedVar& fit, VarSample sample)
      : layout_(fit), sample_(sample), regression_(regressorColumns(layout_, sample), targetsOf(layout_, sample)) {}

  bool moveTo(std::size_t firstOrigin, std::size_t origin, bool rolling) {
    const std::size_t last = origin - layout_.firstRow;
    window_ = rolling ? origin - firstOrigin : 0;
    regression_.moveTo(window_, last);
    return regression_.regular();
  }

  std::optional<Matrix> pointForecast(std::size_t origin, std::size_t horizon) const {
    auto coefficients = regression_.coefficients();
    if (!coefficients) return std::nullopt;
    FittedVar fit;
    fit.lag = layout_.lag;
    fit.constant = layout_.constant;
    fit.coefficients = std::move(*coefficients);
    return forecastPath(fit, sample_, origin, horizon).values;
  }

  std::optional<FittedVar> fit() const {
    auto window = regression_.fit();
    if (!window) return std::nullopt;
    FittedVar fit;
    fit.lag = layout_.lag;
    fit.constant = layout_.constant;
    fit.firstRow = layout_.firstRow + window_;
    fit.coefficients = std::move(window->coefficients);
    fit.residuals = std::move(window->residuals);
    fit.inverse = std::move(window->inverse);
    return fit;
  }

 private:
  FittedVar layout_;
  VarSample sample_;
  RollingRegression regression_;
  std::size_t window_ = 0;
};

// One autoregression a series, on the same rows.
std::vector<RollingModel> rivals(const FittedVar& fit, const VarSample& sample, std::size_t ownTerms) {
  std::vector<RollingModel> models;
  for (std::size_t i = 0; i < sample.series.size(); ++i) {
    FittedVar layout;
    layout.lag = fit.lag;
    layout.constant = fit.constant;
    layout.firstRow = fit.firstRow;
    layout.coefficients = Matrix(1, firstLagColumn(fit) + fit.lag + ownTerms);
    layout.residuals = {fit.residuals[i]};
    models.emplace_back(layout, VarSample{sample.series.subspan(i, 1), sample.known.first(ownTerms)});
  }
  return models;
}

class Run {
 public:
  Run(const FittedVar& fit, const VarSample& sample, const BacktestOptions& options)
      : sample_(sample), options_(options), model_(fit, sample), rivals_(rivals(fit, sample, options.ownTerms)) {}

  std::optional<OriginForecast> forecastAt(std::size_t firstOrigin, std::size_t origin) {
    OriginForecast result;
    result.origin = origin;
    if (!model_.moveTo(firstOrigin, origin, options_.rolling)) return std::nullopt;
    if (!(options_.limits ? forecastWithErrors(origin, result) : forecastAlone(origin, result))) return std::nullopt;
    if (!forecastRivals(firstOrigin, origin, result)) return std::nullopt;
    result.noChange = repeated(origin, 1);
    if (options_.cycle > 1 && origin >= options_.cycle) result.seasonal = repeated(origin, options_.cycle);
    return result;
  }

 private:
  bool forecastAlone(std::size_t origin, OriginForecast& result) const {
    auto values = model_.pointForecast(origin, options_.horizon);
    if (values) result.values = std::move(*values);
    return values.has_value();
  }

  bool forecastWithErrors(std::size_t origin, OriginForecast& result) const {
    const auto fit = model_.fit();
    auto forecast =
        fit ? analyticForecast(*fit, sample_, origin, options_.horizon, options_.namedTerms ? &options_.terms : nullptr)
            : std::nullopt;
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
      const auto values = rivals_[i].pointForecast(origin, options_.horizon);
      if (!values) return false;
      for (std::size_t h = 0; h < options_.horizon; ++h) result.autoregression(h, i) = (*values)(h, 0);
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
  Run run(fit, sample, options);
  for (std::size_t o = 0; o < options.origins; ++o) {
    const std::size_t origin = firstOrigin + o * options.step;
    auto forecast = run.forecastAt(firstOrigin, origin);
    if (!forecast) {
      result.error = BacktestError{origin};
      return result;
    }
    result.forecasts.push_back(std::move(*forecast));
    const double done = static_cast<double>(o + 1) / static_cast<double>(options.origins);
    if (options.progress && !options.progress(done)) {
      result.stopped = true;
      return result;
    }
  }
  return result;
}

}  // namespace engine
