#include "engine/linear_algebra/condition.h"

#include <algorithm>
#include <cmath>

namespace engine {
namespace {

constexpr double kUnitRoundoff = 2.2e-16;
constexpr double kPoorCondition = 1e-12;

}  // namespace

double reciprocalCondition(const Matrix& crossProducts, const Matrix& inverse) {
  const std::size_t k = crossProducts.rows;
  double norm = 0.0;
  double inverseNorm = 0.0;
  for (std::size_t j = 0; j < k; ++j) {
    const double scaleJ = std::sqrt(crossProducts(j, j));
    double sum = 0.0;
    double inverseSum = 0.0;
    for (std::size_t i = 0; i < k; ++i) {
      const double scale = std::sqrt(crossProducts(i, i)) * scaleJ;
      sum += std::abs(crossProducts(i, j)) / scale;
      inverseSum += std::abs(inverse(i, j)) * scale;
    }
    norm = std::isnan(sum) ? sum : std::max(norm, sum);
    inverseNorm = std::isnan(inverseSum) ? inverseSum : std::max(inverseNorm, inverseSum);
  }
  return 1.0 / (norm * inverseNorm);
}

Conditioning classifyCondition(double reciprocalCondition, std::size_t k) {
  if (reciprocalCondition < static_cast<double>(k) * kUnitRoundoff) return Conditioning::singular;
  return reciprocalCondition >= kPoorCondition ? Conditioning::sound : Conditioning::poor;
}

}  // namespace engine
