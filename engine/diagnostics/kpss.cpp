#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "engine/arithmetic/plain_units.h"
#include "engine/diagnostics/unit_root_tests.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

constexpr std::array<double, 4> kProbabilities = {Kpss::kLargestP, 0.05, 0.025, Kpss::kSmallestP};
constexpr std::array<double, 4> kAroundLevel = {0.347, 0.463, 0.574, 0.739};
constexpr std::array<double, 4> kAroundTrend = {0.119, 0.146, 0.176, 0.216};

// Empty when x does not vary around the terms.
std::vector<double> deviations(std::span<const double> x, UnitRootTerms terms) {
  OrthonormalBasis basis;
  basis.append(std::vector<double>(x.size(), 1.0));
  if (terms == UnitRootTerms::constantAndTrend) {
    std::vector<double> trend(x.size());
    for (std::size_t t = 0; t < x.size(); ++t) trend[t] = static_cast<double>(t);
    basis.append(trend);
  }
  std::vector<double> rest = aboutFirst(x);
  if (!OrthonormalBasis(basis).append(rest)) return {};
  basis.removeFrom(rest);
  return rest;
}

double autocovariance(std::span<const double> e, std::size_t lag) {
  return dotProduct(e.subspan(lag), e.first(e.size() - lag)) / static_cast<double>(e.size());
}

std::size_t chooseLags(std::span<const double> e) {
  const auto n = static_cast<double>(e.size());
  const auto pilot = static_cast<std::size_t>(std::pow(n, 2.0 / 9.0));
  double level = autocovariance(e, 0);
  double slope = 0.0;
  for (std::size_t i = 1; i <= pilot; ++i) {
    const double product = 2.0 * autocovariance(e, i);
    level += product;
    slope += static_cast<double>(i) * product;
  }
  const double factor = 1.1447 * std::cbrt(slope / level * (slope / level));
  return static_cast<std::size_t>(std::fmin(factor * std::cbrt(n), n - 1.0));  // the level may be zero
}

double longRunVariance(std::span<const double> e, std::size_t lags) {
  double sum = autocovariance(e, 0);
  for (std::size_t i = 1; i <= lags; ++i) {
    sum += 2.0 * (1.0 - static_cast<double>(i) / static_cast<double>(lags + 1)) * autocovariance(e, i);
  }
  return sum;
}

double interpolated(double statistic, const std::array<double, 4>& critical) {
  if (statistic <= critical.front()) return kProbabilities.front();
  for (std::size_t i = 1; i < critical.size(); ++i) {
    if (statistic > critical[i]) continue;
    const double share = (statistic - critical[i - 1]) / (critical[i] - critical[i - 1]);
    return kProbabilities[i - 1] + share * (kProbabilities[i] - kProbabilities[i - 1]);
  }
  return kProbabilities.back();
}

}  // namespace

std::optional<Kpss> kpss(std::span<const double> x, UnitRootTerms terms) {
  const std::vector<double> e = deviations(x, terms);
  if (e.empty()) return std::nullopt;
  const auto n = static_cast<double>(e.size());
  double level = 0.0;
  double squares = 0.0;
  for (const double value : e) {
    level += value;
    squares += level * level;
  }
  Kpss result;
  result.lags = chooseLags(e);
  result.statistic = squares / (n * n) / longRunVariance(e, result.lags);
  if (!std::isfinite(result.statistic)) return std::nullopt;
  result.pValue = interpolated(result.statistic, terms == UnitRootTerms::constant ? kAroundLevel : kAroundTrend);
  return result;
}

}  // namespace engine
