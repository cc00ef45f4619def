#include "engine/regression/lag_selection.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace engine {
namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// The lag at the first smallest value: a candidate gives way only to a strictly smaller one.
std::int32_t lagOfSmallest(std::span<const std::int32_t> lags, std::span<const double> values) {
  return lags[static_cast<std::size_t>(std::ranges::min_element(values) - values.begin())];
}

std::int32_t lagOfLargest(std::span<const std::int32_t> lags, std::span<const double> values) {
  return lags[static_cast<std::size_t>(std::ranges::max_element(values) - values.begin())];
}

std::int32_t overallLag(const LagChoice& choice, CriterionSwitches enabled, std::int32_t likeliest) {
  const int count = enabled.aic + enabled.bic + enabled.hqic;
  if (count == 1) return enabled.aic ? choice.aic : enabled.bic ? choice.bic : choice.hqic;
  if (enabled.aic && enabled.bic && choice.aic == choice.bic) return choice.aic;
  if (enabled.aic && enabled.hqic && choice.aic == choice.hqic) return choice.aic;
  if (enabled.bic && enabled.hqic && choice.bic == choice.hqic) return choice.bic;
  return likeliest;
}

}  // namespace

InformationCriteria informationCriteria(double determinant, std::size_t equationCount, std::int64_t n,
                                        std::int32_t lag) {
  if (equationCount == 0 || n == 0) return {0.0, kInfinity, kInfinity, kInfinity};
  const auto rows = static_cast<double>(n);
  const auto equations = static_cast<double>(equationCount);
  const double parameters = lag * equations * equations + equations;
  InformationCriteria result;
  result.logLikelihood =
      determinant > 0.0 ? -(rows * 0.5) * std::log(determinant) - (std::log(kTwoPi) + 1.0) * (equations * rows * 0.5)
                        : -kInfinity;
  const double deviance = -2.0 * result.logLikelihood / rows;
  result.aic = 2.0 * parameters / rows + deviance;
  result.bic = std::log(rows) / rows * parameters + deviance;
  result.hqic = n >= 3 ? 2.0 * std::log(std::log(rows)) / rows * parameters + deviance : kInfinity;
  return result;
}

LagChoice chooseLag(std::span<const std::int32_t> lags, std::span<const double> aic, std::span<const double> bic,
                    std::span<const double> hqic, std::span<const double> logLikelihoods, CriterionSwitches enabled) {
  if (lags.empty() || aic.empty() || bic.empty() || hqic.empty()) {
    throw std::invalid_argument("Input vectors must not be empty.");
  }
  if (aic.size() != lags.size() || bic.size() != lags.size() || hqic.size() != lags.size()) {
    throw std::invalid_argument("All input vectors must have the same size.");
  }
  LagChoice choice{lagOfSmallest(lags, aic), lagOfSmallest(lags, bic), lagOfSmallest(lags, hqic), 0};
  choice.overall = overallLag(choice, enabled, lagOfLargest(lags, logLikelihoods));
  return choice;
}

}  // namespace engine
