#include "engine/regression/lag_data.h"

#include <cmath>

namespace engine {
namespace {

constexpr int kCenterBits = 24;

// The mean with few bits; of four interleaved sums, since its last digits do not matter.
double centerOf(const std::vector<double>& x) {
  double sums[4] = {};
  const std::size_t whole = x.size() / 4 * 4;
  for (std::size_t t = 0; t < whole; t += 4) {
    for (std::size_t lane = 0; lane < 4; ++lane) sums[lane] += x[t + lane];
  }
  for (std::size_t t = whole; t < x.size(); ++t) sums[0] += x[t];
  int exponent = 0;
  const double mean = (sums[0] + sums[1] + sums[2] + sums[3]) / static_cast<double>(x.size());
  const double fraction = std::frexp(mean, &exponent);
  return std::ldexp(std::round(std::ldexp(fraction, kCenterBits)), exponent - kCenterBits);
}

std::vector<double> centersOf(const LagData::SeriesList& series) {
  std::vector<double> centers;
  for (const std::vector<double>& x : series) centers.push_back(centerOf(x));
  return centers;
}

}  // namespace

LagData::LagData(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t maxLag)
    : endogenous_(&endogenous),
      exogenous_(&exogenous),
      maxLag_(static_cast<std::size_t>(maxLag)),
      endogenousCenters_(centersOf(endogenous)),
      exogenousCenters_(centersOf(exogenous)) {}

double LagData::regressorCenter(std::size_t j) const {
  if (j == 0) return 0.0;
  if (j <= exogenousCount()) return exogenousCenters_[j - 1];
  return endogenousCenters_[(j - 1 - exogenousCount()) % seriesCount()];
}

}  // namespace engine
