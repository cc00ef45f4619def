// Standard errors, t tests and confidence limits of least-squares coefficients.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace engine {

// The diagonal of (X'X)^-1, k elements: element j is values[j] * 4^-exponents[j]. In one number the unit of a
// regressor, squared, could leave the range of doubles.
struct InverseDiagonal {
  std::vector<double> values;
  std::vector<int> exponents;
};

// The root of variance times element j; 0 where that is negative.
double standardError(double residualVariance, const InverseDiagonal& inverse, std::size_t j);

// One value a coefficient, k each.
struct CoefficientInference {
  std::vector<double> standardErrors;
  std::vector<double> tStatistics;
  std::vector<double> pValues;  // two-sided
  std::vector<double> lowerLimits;
  std::vector<double> upperLimits;
};

// The number that Student's t exceeds in absolute value with the probability 1 - level / 100; 0 < level < 100.
double studentLimit(double level, double degreesOfFreedom);

// The distribution of which confidence limits are quantiles: standard normal, or Student's t like the p-values.
enum class LimitQuantile { normal, studentT };

// The quantile at 1 - (100 - confidenceLevel) / 200, for a level in percent, 0..100: 0 for 0, infinity for 100.
double criticalValue(double confidenceLevel, LimitQuantile quantile = LimitQuantile::normal,
                     std::int64_t degreesOfFreedom = 0);

// P(|T| >= |t|) for Student's t with `degreesOfFreedom`; 1 when these are 0 or the distribution refuses t. The tail is
// taken as a complement, so that a p-value of 1e-30 keeps its digits.
double twoSidedPValue(double t, std::int64_t degreesOfFreedom);

// Inference on k coefficients from the residual variance and the diagonal of (X'X)^-1; the limits are b -/+ se *
// critical value. Where the standard error is not positive, t is 0, p is 1 and both limits are b.
CoefficientInference inferCoefficients(std::span<const double> coefficients, double residualVariance,
                                       const InverseDiagonal& inverse, std::int64_t degreesOfFreedom,
                                       double confidenceLevel, LimitQuantile quantile);

}  // namespace engine
