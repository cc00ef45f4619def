#include <cmath>

#include "engine/arithmetic/moments.h"
#include "engine/diagnostics/residual_tests.h"

namespace engine {
namespace {

constexpr std::size_t kSmallestSample = 4;
constexpr double kNoVariation = 1e-12;
constexpr double kLargeStatistic = 10.0;
constexpr double kSmallestPValue = 1e-6;

}  // namespace

std::optional<TestResult> jarqueBera(std::span<const double> residuals) {
  if (residuals.size() < kSmallestSample) return std::nullopt;
  const auto n = static_cast<double>(residuals.size());
  const double center = mean(residuals);
  const double variance = sumOfSquaredDeviations(residuals, center) / n;
  if (variance < kNoVariation) return std::nullopt;
  const double deviation = std::sqrt(variance);
  double cubes = 0.0;
  double fourths = 0.0;
  for (const double e : residuals) {
    const double z = (e - center) / deviation;
    cubes += z * z * z;
    fourths += z * z * z * z;
  }
  const double skewness = cubes / n;
  const double excess = fourths / n - 3.0;
  const double statistic = n * (skewness * skewness / 6.0 + excess * excess / 24.0);
  return TestResult{statistic, statistic < kLargeStatistic ? std::exp(-statistic / 2.0) : kSmallestPValue};
}

}  // namespace engine
