#include "engine/diagnostics/autocorrelation.h"

#include <cmath>

#include "engine/arithmetic/moments.h"

namespace engine {
namespace {

constexpr double kNoVariation = 1e-10;

double laggedProductSum(std::span<const double> x, double center, std::size_t lag) {
  double sum = 0.0;
  for (std::size_t t = lag; t < x.size(); ++t) sum += (x[t - lag] - center) * (x[t] - center);
  return sum;
}

}  // namespace

std::optional<Autocorrelations> autocorrelations(std::span<const double> x, std::int32_t lags) {
  if (x.empty() || lags < 1 || lags >= std::ssize(x)) return std::nullopt;
  const auto count = static_cast<std::size_t>(lags);
  Autocorrelations result{std::vector<double>(count), std::vector<double>(count)};
  const double center = mean(x);
  const double total = sumOfSquaredDeviations(x, center);
  if (total < kNoVariation) return result;
  double squares = 0.0;
  for (std::size_t k = 1; k <= count; ++k) {
    const double r = laggedProductSum(x, center, k) / total;
    result.values[k - 1] = r;
    result.standardErrors[k - 1] = std::sqrt((1.0 + 2.0 * squares) / static_cast<double>(x.size()));
    squares += r * r;
  }
  return result;
}

}  // namespace engine
