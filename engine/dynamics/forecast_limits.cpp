#include "engine/dynamics/forecast_limits.h"

#include "engine/regression/inference.h"

namespace engine {

std::optional<AnalyticForecast> analyticForecast(const FittedVar& fit, const VarSample& sample, std::size_t horizon,
                                                 const KnownTerms* terms) {
  return analyticForecast(fit, sample, sample.series.front().size(), horizon, terms);
}

std::optional<AnalyticForecast> analyticForecast(const FittedVar& fit, const VarSample& sample, std::size_t origin,
                                                 std::size_t horizon, const KnownTerms* terms) {
  auto model = correctedModel(fit, sample, terms);
  if (!model) return std::nullopt;
  auto errors = forecastErrors(*model, forecastPath(model->fit, sample, origin, horizon).regressors);
  if (!errors) return std::nullopt;
  AnalyticForecast result;
  result.values = forecastPath(fit, sample, origin, horizon).values;
  result.standardErrors = standardErrors(*errors);
  result.degreesOfFreedom = residualDegrees(fit);
  result.model = std::move(*model);
  result.errors = std::move(*errors);
  return result;
}

ForecastLimits studentLimits(const Matrix& values, const Matrix& standardErrors, double degreesOfFreedom,
                             double level) {
  const double width = studentLimit(level, degreesOfFreedom);
  ForecastLimits limits{level, values, values};
  for (std::size_t i = 0; i < values.values.size(); ++i) {
    limits.lower.values[i] -= width * standardErrors.values[i];
    limits.upper.values[i] += width * standardErrors.values[i];
  }
  return limits;
}

}  // namespace engine
