#include "engine/diagnostics/descriptives.h"

#include <algorithm>
#include <cmath>

#include "engine/arithmetic/moments.h"

namespace engine {

Descriptives describe(std::span<const double> x) {
  if (x.empty()) return {};
  Descriptives result;
  result.n = x.size();
  result.mean = mean(x);
  if (x.size() > 1) {
    result.standardDeviation = std::sqrt(sumOfSquaredDeviations(x, result.mean) / static_cast<double>(x.size() - 1));
  }
  result.minimum = std::ranges::min(x);
  result.maximum = std::ranges::max(x);
  return result;
}

}  // namespace engine
