// Standard errors, t tests and confidence limits of least-squares coefficients.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace engine {

// One value a coefficient, k each.
struct CoefficientInference {
  std::vector<double> standardErrors;
  std::vector<double> tStatistics;
  std::vector<double> pValues;  // two-sided
  std::vector<double> lowerLimits;
  std::vector<double> upperLimits;
};

// The standard normal quantile at 1 - (100 - confidenceLevel) / 200, for a level in percent, 0..100: 0 for 0, infinity
// for 100.
double criticalValue(double confidenceLevel);

// P(|T| >= |t|) for Student's t with `degreesOfFreedom`; 1 when these are 0 or the distribution refuses t. The tail is
// taken as a complement, so that a p-value of 1e-30 keeps its digits.
double twoSidedPValue(double t, std::int64_t degreesOfFreedom);

// Inference on k coefficients from the residual variance and the k diagonal elements of (X'X)^-1. The limits are b -/+
// se * critical value (normal), while the p-values use Student's t: both on purpose. Where the standard error is not
// positive, t is 0, p is 1 and both limits are b.
CoefficientInference inferCoefficients(std::span<const double> coefficients, double residualVariance,
                                       std::span<const double> inverseDiagonal, std::int64_t degreesOfFreedom,
                                       double confidenceLevel);

}  // namespace engine
