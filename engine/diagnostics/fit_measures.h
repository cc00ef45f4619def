// How close the fitted values of an equation come to the actual ones.

#pragma once

#include <cstdint>
#include <span>

namespace engine {

// 1 - SSR / SST with SST the squared deviations of y from its mean; 0 when SST is not positive.
double rSquare(double residualSumOfSquares, std::span<const double> y);

// 1 - (1 - R2)(N - 1) / (N - q - 1) for N observations and q regressors; 0 unless N > q + 1.
double adjustedRSquare(double rSquare, std::int64_t observations, std::int64_t regressors);

struct ErrorMeasures {
  double meanSquared = 0.0;
  double rootMeanSquared = 0.0;
  double meanAbsolute = 0.0;
  double meanAbsolutePercent = 0.0;  // over the cases with |y| > 1e-10; 0 when there is none
};

// From n residuals and their n actual values; all zero when there are none or the lengths differ.
ErrorMeasures errorMeasures(std::span<const double> residuals, std::span<const double> y);

}  // namespace engine
