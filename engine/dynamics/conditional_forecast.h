// Forecasts given that some future values are known.

#pragma once

#include <cstddef>
#include <optional>
#include <span>

#include "engine/diagnostics/test_statistics.h"
#include "engine/dynamics/forecast_errors.h"

namespace engine {

struct HeldValue {
  std::size_t horizon = 1;  // counted from 1
  std::size_t series = 0;   // counted from 0
  double value = 0.0;
};

struct ConditionalForecast {
  Matrix values;           // H x K; the held values where they are held
  Matrix standardErrors;   // H x K; 0 where held
  Matrix explained;        // (H K) x r, h major: rows a and b take their product off the covariance of these values
  ChiSquaredTest unusual;  // q = c' (R Om R')^-1 c on the number of held values
};

// The mean of the free values given the held ones, with the gain from `shocks` (the least-squares model without
// estimation uncertainty), which is what the Kalman smoother gives, whatever the order of the series. Standard errors
// from the Schur complement of the covariances Om of `errors`, and q, for c the held less the unconditional values,
// from Om too. No value may be held twice. Nothing when the held values' covariance is singular.
std::optional<ConditionalForecast> conditionalForecast(const Matrix& unconditional, const ForecastErrors& shocks,
                                                       const ForecastErrors& errors, std::span<const HeldValue> held);

}  // namespace engine
