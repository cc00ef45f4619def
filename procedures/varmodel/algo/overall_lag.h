// One lag order from several criteria.

#pragma once

#include <cstdint>
#include <span>

namespace varmodel {

struct CriterionSwitches {
  bool aic = false;
  bool bic = false;
  bool hqic = false;
};

struct LagChoice {
  std::int32_t aic = 0;
  std::int32_t bic = 0;
  std::int32_t hqic = 0;
  std::int32_t overall = 0;
};

// Parallel lists, one entry a fitted lag, ascending. Each criterion chooses the lag of its smallest value, the first
// among equals. Overall: the only enabled criterion's lag; else the lag on which two enabled ones agree (AIC with BIC,
// AIC with HQIC, BIC with HQIC, in this order); else the lag of the largest log-likelihood. Throws
// std::invalid_argument when one of the first four lists is empty or they differ in length.
LagChoice chooseLag(std::span<const std::int32_t> lags, std::span<const double> aic, std::span<const double> bic,
                    std::span<const double> hqic, std::span<const double> logLikelihoods, CriterionSwitches enabled);

}  // namespace varmodel
