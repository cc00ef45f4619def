#include "engine/dynamics/forecast_evaluation.h"

#include <boost/math/distributions/normal.hpp>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "engine/arithmetic/moments.h"
#include "engine/linear_algebra/orthonormal_basis.h"
#include "engine/regression/inference.h"

namespace engine {
namespace {

double normalTail(double z) {
  return boost::math::cdf(boost::math::complement(boost::math::normal_distribution<double>(), z));
}

// The score of one normal forecast with standard error 1 and error z.
double standardScore(double z) {
  const double density = std::exp(-0.5 * z * z) / std::sqrt(2.0 * std::numbers::pi);
  return z * (1.0 - 2.0 * normalTail(z)) + 2.0 * density - std::numbers::inv_sqrtpi;
}

// The variance of the mean of values whose autocovariances reach `overlap` places: flat weights.
std::optional<double> varianceOfMean(std::span<const double> values, std::size_t overlap) {
  if (values.size() <= overlap + 1) return std::nullopt;
  const double center = mean(values);
  std::vector<double> deviations(values.begin(), values.end());
  for (double& value : deviations) value -= center;
  const std::span<const double> d = deviations;
  double sum = sumOfSquares(d);
  for (std::size_t k = 1; k <= overlap; ++k) sum += 2.0 * dotProduct(d.subspan(k), d.first(d.size() - k));
  const auto count = static_cast<double>(values.size());
  if (!(sum > 0.0)) return std::nullopt;
  return sum / (count * count);
}

}  // namespace

ForecastAccuracy forecastAccuracy(std::span<const double> errors) {
  ForecastAccuracy result;
  result.count = errors.size();
  double absolute = 0.0;
  for (const double error : errors) absolute += std::abs(error);
  const auto count = static_cast<double>(errors.size());
  result.rootMeanSquare = std::sqrt(sumOfSquares(errors) / count);
  result.meanAbsolute = absolute / count;
  result.bias = mean(errors);
  return result;
}

double naiveScale(std::span<const double> series, std::size_t rows, std::size_t cycle) {
  double sum = 0.0;
  for (std::size_t t = cycle; t < rows; ++t) sum += std::abs(series[t] - series[t - cycle]);
  const double scale = rows > cycle ? sum / static_cast<double>(rows - cycle) : 0.0;
  return scale > 0.0 ? scale : std::numeric_limits<double>::quiet_NaN();
}

double normalScore(std::span<const double> errors, std::span<const double> standardErrors) {
  double sum = 0.0;
  for (std::size_t i = 0; i < errors.size(); ++i) {
    sum += standardErrors[i] * standardScore(errors[i] / standardErrors[i]);
  }
  return sum / static_cast<double>(errors.size());
}

std::size_t coveredCount(std::span<const double> errors, std::span<const double> standardErrors, double width) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < errors.size(); ++i) count += std::abs(errors[i]) <= width * standardErrors[i] ? 1u : 0u;
  return count;
}

std::optional<ForecastComparison> dieboldMariano(std::span<const double> first, std::span<const double> second,
                                                 std::size_t overlap) {
  std::vector<double> gains;
  for (std::size_t i = 0; i < first.size(); ++i) gains.push_back((first[i] - second[i]) * (first[i] + second[i]));
  const auto variance = varianceOfMean(gains, overlap);
  if (!variance) return std::nullopt;
  const auto count = static_cast<double>(gains.size());
  const auto h = static_cast<double>(overlap + 1);
  const double factor = (count + 1.0 - 2.0 * h + h * (h - 1.0) / count) / count;
  const double statistic = std::sqrt(factor) * mean(gains) / std::sqrt(*variance);
  const auto degrees = static_cast<std::int64_t>(gains.size()) - 1;
  return ForecastComparison{statistic, static_cast<double>(degrees), twoSidedPValue(statistic, degrees)};
}

std::optional<ForecastComparison> clarkWest(std::span<const double> first, std::span<const double> second,
                                            std::size_t overlap) {
  std::vector<double> gains;
  for (std::size_t i = 0; i < first.size(); ++i) {
    // e1^2 - e2^2 + (f1 - f2)^2, where f1 - f2 = e2 - e1.
    gains.push_back(2.0 * first[i] * (first[i] - second[i]));
  }
  const auto variance = varianceOfMean(gains, overlap);
  if (!variance) return std::nullopt;
  const double statistic = mean(gains) / std::sqrt(*variance);
  return ForecastComparison{statistic, 0.0, normalTail(statistic)};
}

}  // namespace engine
