// Log-likelihood and information criteria of a fitted model, and the lag order that they choose.

#pragma once

#include <cstdint>
#include <span>

namespace engine {

struct InformationCriteria {
  double logLikelihood = 0.0;
  double aic = 0.0;
  double bic = 0.0;
  double hqic = 0.0;
};

// Of a VAR(lag) with K equations on n rows, from the determinant of its residual covariance (divisor n). The Gaussian
// log-likelihood is -n/2 (ln det + K (ln 2 pi + 1)), minus infinity unless det > 0. Akaike 1974, Schwarz 1978, Hannan &
// Quinn 1979, each divided by n, with lag K^2 + K parameters: exogenous regressors are not counted. HQIC is infinite
// for n < 3; all three are when K or n is 0.
InformationCriteria informationCriteria(double determinant, std::size_t equationCount, std::int64_t n,
                                        std::int32_t lag);

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

}  // namespace engine
