#include "engine/regression/lag_data.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace engine {
namespace {

// Odd, so that the median is a value of the sample, and prime, so that no season hits the same place every time.
constexpr std::size_t kSampleSize = 127;
// 2^-1000 and 2^1000 are doubles with room on both sides.
constexpr int kLargestExponent = 1000;

// Of the finite values of the sample; 0 when there is none.
double medianOfSample(std::span<const double> x) {
  std::vector<double> sample;
  const std::size_t count = std::min(x.size(), kSampleSize);
  for (std::size_t i = 0; i < count; ++i) {
    const double value = x[i * x.size() / count];
    if (std::isfinite(value)) sample.push_back(value);
  }
  if (sample.empty()) return 0.0;
  const auto middle = sample.begin() + std::ssize(sample) / 2;
  std::ranges::nth_element(sample, middle);
  return *middle;
}

// The largest |x - c|, of four interleaved maxima; infinite when some x - c is not finite.
double largestDistance(std::span<const double> x, double center) {
  double largest[4] = {};
  bool finite[4] = {true, true, true, true};
  const std::size_t whole = x.size() / 4 * 4;
  const auto take = [&](std::size_t t, std::size_t lane) {
    const double distance = std::abs(x[t] - center);
    finite[lane] &= distance <= std::numeric_limits<double>::max();
    largest[lane] = largest[lane] < distance ? distance : largest[lane];
  };
  for (std::size_t t = 0; t < whole; t += 4) {
    for (std::size_t lane = 0; lane < 4; ++lane) take(t + lane, lane);
  }
  for (std::size_t t = whole; t < x.size(); ++t) take(t, 0);
  if (!(finite[0] && finite[1] && finite[2] && finite[3])) return std::numeric_limits<double>::infinity();
  return std::max({largest[0], largest[1], largest[2], largest[3]});
}

}  // namespace

Placement placementOf(std::span<const double> values, bool centred) {
  Placement result;
  if (centred) result.center = medianOfSample(values);
  const double distance = largestDistance(values, result.center);
  result.finite = std::isfinite(distance);
  if (distance > 0.0 && result.finite) std::frexp(distance, &result.exponent);
  result.exponent = std::clamp(result.exponent, -kLargestExponent, kLargestExponent);
  return result;
}

PlacedSeries::PlacedSeries(const std::vector<double>& series, std::size_t firstUsed, bool centred)
    : values_(series.data()),
      placement_(placementOf(std::span(series).subspan(firstUsed), centred)),
      power_(std::ldexp(1.0, -placement_.exponent)) {}

LagData::LagData(const SeriesList& endogenous, const SeriesList& exogenous, const LagShape& shape)
    : length_(endogenous.front().size()), shape_(shape) {
  for (const auto& x : endogenous) endogenous_.emplace_back(x, shape.firstRow - shape.maxLag, shape.constant);
  for (const auto& x : exogenous) exogenous_.emplace_back(x, shape.firstRow, shape.constant);
}

bool LagData::isFinite() const {
  const auto finite = [](const PlacedSeries& series) { return series.placement().finite; };
  return std::ranges::all_of(endogenous_, finite) && std::ranges::all_of(exogenous_, finite);
}

const Placement& LagData::placement(std::size_t j) const {
  static const Placement ofConstant;
  if (shape_.constant && j == 0) return ofConstant;
  if (j < fixedCount()) return exogenous_[j + exogenousCount() - fixedCount()].placement();
  return endogenous_[(j - fixedCount()) % seriesCount()].placement();
}

std::size_t LagData::coefficientIndex(std::size_t lag, std::size_t j) const {
  if (shape_.constant && j == 0) return 0;
  return j < fixedCount() ? lag * seriesCount() + j : j - exogenousCount();
}

}  // namespace engine
