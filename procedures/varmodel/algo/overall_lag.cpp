#include "procedures/varmodel/algo/overall_lag.h"

#include <algorithm>
#include <stdexcept>

#include "engine/regression/lag_selection.h"

namespace varmodel {
namespace {

std::int32_t overallLag(const LagChoice& choice, CriterionSwitches enabled, std::int32_t likeliest) {
  const int count = enabled.aic + enabled.bic + enabled.hqic;
  if (count == 1) return enabled.aic ? choice.aic : enabled.bic ? choice.bic : choice.hqic;
  if (enabled.aic && enabled.bic && choice.aic == choice.bic) return choice.aic;
  if (enabled.aic && enabled.hqic && choice.aic == choice.hqic) return choice.aic;
  if (enabled.bic && enabled.hqic && choice.bic == choice.hqic) return choice.bic;
  return likeliest;
}

}  // namespace

LagChoice chooseLag(std::span<const std::int32_t> lags, std::span<const double> aic, std::span<const double> bic,
                    std::span<const double> hqic, std::span<const double> logLikelihoods, CriterionSwitches enabled) {
  if (lags.empty() || aic.empty() || bic.empty() || hqic.empty()) {
    throw std::invalid_argument("Input vectors must not be empty.");
  }
  if (aic.size() != lags.size() || bic.size() != lags.size() || hqic.size() != lags.size()) {
    throw std::invalid_argument("All input vectors must have the same size.");
  }
  const auto lagOf = [&](std::span<const double> values) { return lags[engine::placeOfSmallest(values)]; };
  LagChoice choice{lagOf(aic), lagOf(bic), lagOf(hqic), 0};
  const auto likeliest = std::ranges::max_element(logLikelihoods) - logLikelihoods.begin();
  choice.overall = overallLag(choice, enabled, lags[static_cast<std::size_t>(likeliest)]);
  return choice;
}

}  // namespace varmodel
