#include <algorithm>
#include <array>
#include <boost/math/distributions/chi_squared.hpp>
#include <exception>
#include <string_view>
#include <utility>

#include "engine/diagnostics/autocorrelation.h"
#include "engine/diagnostics/residual_tests.h"

namespace engine {
namespace {

constexpr std::array<std::pair<std::string_view, std::int32_t>, 8> kCycleLengths{{{"SECOND", 60},
                                                                                  {"MINUTE", 60},
                                                                                  {"HOUR", 24},
                                                                                  {"DAY", 7},
                                                                                  {"WEEK", 52},
                                                                                  {"MONTH", 12},
                                                                                  {"QUARTER", 4},
                                                                                  {"YEAR", 1}}};

// The upper tail as a complement, so that small p-values keep their digits.
double chiSquaredTail(double statistic, std::int32_t degreesOfFreedom) {
  try {
    const boost::math::chi_squared_distribution<double> distribution(degreesOfFreedom);
    return boost::math::cdf(boost::math::complement(distribution, statistic));
  } catch (const std::exception&) {
    return 1.0;
  }
}

}  // namespace

std::optional<TestResult> ljungBox(std::span<const double> residuals, std::int32_t lags) {
  const std::optional<Autocorrelations> acf = autocorrelations(residuals, lags);
  if (!acf) return std::nullopt;
  const auto n = static_cast<double>(residuals.size());
  double sum = 0.0;
  for (std::size_t k = 1; k <= acf->values.size(); ++k) {
    sum += acf->values[k - 1] * acf->values[k - 1] / (n - static_cast<double>(k));
  }
  const double statistic = n * (n + 2.0) * sum;
  return TestResult{statistic, chiSquaredTail(statistic, lags)};
}

std::int32_t ljungBoxLagCount(std::span<const std::string> timeUnitNames, std::int32_t otherwise) {
  for (const auto& [name, lags] : kCycleLengths) {
    if (std::ranges::find(timeUnitNames, name) != timeUnitNames.end()) return lags;
  }
  return otherwise;
}

}  // namespace engine
