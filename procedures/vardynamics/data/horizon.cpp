#include "procedures/vardynamics/data/horizon.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace vardynamics {
namespace {

constexpr std::size_t kPlainHorizon = 8;

}  // namespace

std::size_t forecastHorizon(const HorizonRequest& request, const Sample& sample) {
  if (request.periods) return *request.periods;
  const auto last = static_cast<std::int64_t>(sample.cases.last);
  if (request.predictOffset && *request.predictOffset > last) {
    return static_cast<std::size_t>(*request.predictOffset - last);
  }
  if (sample.futureRows() > 0) return sample.futureRows();
  return request.cycle > 0 ? 2 * request.cycle : kPlainHorizon;
}

std::optional<MissingFutureValue> firstMissingFutureValue(const Sample& sample, std::size_t horizon) {
  for (std::size_t step = 0; step < horizon; ++step) {
    for (std::size_t series = 0; series < sample.futureExogenous.size(); ++series) {
      const std::vector<double>& values = sample.futureExogenous[series];
      if (step >= values.size() || std::isnan(values[step])) return MissingFutureValue{step, series};
    }
  }
  return std::nullopt;
}

bool holdsCondition(const Sample& sample, std::size_t horizon) {
  return std::ranges::any_of(sample.futureEndogenous, [horizon](const auto& values) {
    return std::ranges::any_of(std::span(values).first(std::min(horizon, values.size())),
                               [](double value) { return !std::isnan(value); });
  });
}

}  // namespace vardynamics
