#include "engine/dynamics/forecast_path.h"

#include <cassert>

#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

// Series i at row t, observed before the origin and forecast from there on.
double valueAt(const VarSample& sample, const Matrix& forecasts, std::size_t origin, std::size_t i, std::size_t t) {
  return t < origin ? sample.series[i][t] : forecasts(t - origin, i);
}

void fillRow(const FittedVar& fit, const VarSample& sample, const Matrix& forecasts, std::size_t origin, std::size_t s,
             std::span<double> row) {
  std::size_t next = 0;
  if (fit.constant) row[next++] = 1.0;
  for (std::size_t lag = 1; lag <= fit.lag; ++lag) {
    for (std::size_t i = 0; i < sample.series.size(); ++i) {
      row[next++] = valueAt(sample, forecasts, origin, i, origin + s - lag);
    }
  }
  for (const std::vector<double>& known : sample.known) row[next++] = known[origin + s];
  assert(next == row.size());
}

}  // namespace

ForecastPath forecastPath(const FittedVar& fit, const VarSample& sample, std::size_t origin, std::size_t horizon) {
  assert(origin >= fit.lag);
  ForecastPath path{Matrix(horizon, regressorCount(fit)), Matrix(horizon, seriesCount(fit))};
  for (std::size_t s = 0; s < horizon; ++s) {
    fillRow(fit, sample, path.values, origin, s, path.regressors.row(s));
    for (std::size_t i = 0; i < path.values.columns; ++i) {
      path.values(s, i) = dotProduct(fit.coefficients.row(i), path.regressors.row(s));
    }
  }
  return path;
}

}  // namespace engine
