#include "engine/diagnostics/normality_tests.h"

#include <algorithm>
#include <cmath>

#include "engine/arithmetic/moments.h"

namespace engine {

Shape shapeOf(std::span<const double> x) {
  const auto n = static_cast<double>(x.size());
  const double center = mean(x);
  const double deviation = std::sqrt(sumOfSquaredDeviations(x, center) / n);
  Shape shape;
  for (const double value : x) {
    const double z = (value - center) / deviation;
    shape.skewness += z * z * z / n;
    shape.kurtosis += z * z * z * z / n;
  }
  return shape;
}

std::optional<ChiSquaredTest> jarqueBeraTest(std::span<const double> x) {
  const Shape shape = shapeOf(x);
  if (!std::isfinite(shape.kurtosis)) return std::nullopt;
  const double excess = shape.kurtosis - 3.0;
  const auto n = static_cast<double>(x.size());
  return chiSquaredTest(n * (shape.skewness * shape.skewness / 6.0 + excess * excess / 24.0), 2.0);
}

std::optional<MultivariateNormality> choleskyNormality(ResidualList residuals) {
  const auto standardised = choleskyStandardised(centredResiduals(residuals));
  if (!standardised) return std::nullopt;
  const auto n = static_cast<double>(residuals.front().size());
  const auto k = static_cast<double>(residuals.size());
  double skewness = 0.0;
  double kurtosis = 0.0;
  for (const std::vector<double>& one : *standardised) {
    const Shape shape = shapeOf(one);
    skewness += n * shape.skewness * shape.skewness / 6.0;
    kurtosis += n * (shape.kurtosis - 3.0) * (shape.kurtosis - 3.0) / 24.0;
  }
  return MultivariateNormality{chiSquaredTest(skewness, k), chiSquaredTest(kurtosis, k),
                               chiSquaredTest(skewness + kurtosis, 2.0 * k)};
}

}  // namespace engine
