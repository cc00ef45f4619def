#include "engine/dynamics/level_forecast.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "engine/regression/inference.h"

namespace engine {
namespace {

constexpr double kPercent = 100.0;

double nextLevel(double y, double before, const LevelScale& scale) {
  switch (scale.change) {
    case Change::logarithm:
      return std::exp(y / scale.factor);
    case Change::logDifference:
      return before * std::exp(y / scale.factor);
    case Change::percentage:
      return before * (1.0 + y / (kPercent * scale.factor));
    case Change::difference:
      break;
  }
  return before + y / scale.factor;
}

// The derivative of the step of x, or of ln x, by y.
double slopeOf(double y, const LevelScale& scale) {
  if (scale.change != Change::percentage) return 1.0 / scale.factor;
  const double growth = 1.0 + y / (kPercent * scale.factor);
  return growth > 0.0 ? 1.0 / (growth * kPercent * scale.factor) : std::numeric_limits<double>::quiet_NaN();
}

double rowProduct(const Matrix& a, const Matrix& b, std::size_t row) {
  double sum = 0.0;
  for (std::size_t c = 0; c < a.columns; ++c) sum += a(row, c) * b(row, c);
  return sum;
}

// The variance of the sum of the steps to every horizon: a step h goes on from the sum `lag` horizons before.
std::vector<double> sumVariances(std::span<const double> slopes, const Matrix& covariance, std::size_t lag) {
  std::vector<double> variances;
  for (std::size_t h = 0; h < slopes.size(); ++h) {
    double variance = slopes[h] * slopes[h] * covariance(h, h);
    if (lag > 0 && h >= lag) {
      variance += variances[h - lag];
      for (std::size_t g = h; g >= lag;) {
        g -= lag;
        variance += 2.0 * slopes[h] * slopes[g] * covariance(h, g);
      }
    }
    variances.push_back(variance);
  }
  return variances;
}

}  // namespace

std::vector<double> levelPath(std::span<const double> y, const LevelScale& scale) {
  std::vector<double> path;
  for (std::size_t h = 0; h < y.size(); ++h) {
    const bool known = h < scale.lag;
    const double before = scale.change == Change::logarithm ? 0.0 : known ? scale.before[h] : path[h - scale.lag];
    path.push_back(nextLevel(y[h], before, scale));
  }
  return path;
}

Matrix seriesCovariance(const ForecastErrors& errors, std::size_t series) {
  const std::size_t horizon = errors.shocks.size();
  Matrix result(horizon, horizon);
  for (std::size_t h = 0; h < horizon; ++h) {
    for (std::size_t g = 0; g <= h; ++g) {
      // Both forecasts share the shock of the first period, and those after it as the forecasts one period shorter do.
      result(h, g) = rowProduct(errors.shocks[h], errors.shocks[g], series);
      if (g > 0) result(h, g) += result(h - 1, g - 1);
    }
  }
  for (std::size_t h = 0; h < horizon; ++h) {
    for (std::size_t g = 0; g <= h; ++g) {
      if (!errors.estimation.empty()) {
        result(h, g) += rowProduct(errors.estimation[h], errors.estimation[g], series);
      }
      result(g, h) = result(h, g);
    }
  }
  return result;
}

LevelForecast::Limits LevelForecast::limits(double degreesOfFreedom, double level) const {
  const double width = studentLimit(level, degreesOfFreedom);
  Limits result{values, values};
  for (std::size_t h = 0; h < values.size(); ++h) {
    const double distance = width * spreads[h];
    const double below = multiplicative ? values[h] * std::exp(-distance) : values[h] - distance;
    const double above = multiplicative ? values[h] * std::exp(distance) : values[h] + distance;
    result.lower[h] = values[h] < 0.0 && multiplicative ? above : below;
    result.upper[h] = values[h] < 0.0 && multiplicative ? below : above;
  }
  return result;
}

LevelForecast levelForecast(std::span<const double> y, const Matrix& covariance, const LevelScale& scale) {
  LevelForecast result{levelPath(y, scale), {}, scale.change != Change::difference};
  std::vector<double> slopes;
  for (const double value : y) slopes.push_back(slopeOf(value, scale));
  const std::size_t lag = scale.change == Change::logarithm ? 0 : scale.lag;
  for (const double variance : sumVariances(slopes, covariance, lag)) {
    // A held value leaves no variance but rounding.
    result.spreads.push_back(std::isnan(variance) ? variance : std::sqrt(std::max(variance, 0.0)));
  }
  return result;
}

}  // namespace engine
