// Forecasts with limits that hold in samples of the length that is used.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/forecast_errors.h"

namespace engine {

struct ForecastLimits {
  double level = 0.0;  // percent
  Matrix lower;        // H x K
  Matrix upper;
};

struct AnalyticForecast {
  Matrix values;          // H x K: the least-squares forecast
  Matrix standardErrors;  // H x K: at the bias-corrected model, with estimation uncertainty
  double degreesOfFreedom = 0.0;
  CorrectedModel model;
  ForecastErrors errors;
};

// From the end of the sample on, at the model corrected as correctedModel() says. Nothing when the residuals or the
// regressors are linearly dependent.
std::optional<AnalyticForecast> analyticForecast(const FittedVar& fit, const VarSample& sample, std::size_t horizon,
                                                 const KnownTerms* terms);

// The same from the first `origin` observations on, for a model fitted on rows before it.
std::optional<AnalyticForecast> analyticForecast(const FittedVar& fit, const VarSample& sample, std::size_t origin,
                                                 std::size_t horizon, const KnownTerms* terms);

// values -+ t standard errors, t from Student's t.
ForecastLimits studentLimits(const Matrix& values, const Matrix& standardErrors, double degreesOfFreedom, double level);

}  // namespace engine
