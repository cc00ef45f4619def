// Tests of residuals for normality: of one equation and of all jointly. All take the residuals less their means.

#pragma once

#include <optional>
#include <span>

#include "engine/diagnostics/standardised_residuals.h"
#include "engine/diagnostics/test_statistics.h"

namespace engine {

// Skewness and kurtosis of n values: their central moments over n, in units of the standard deviation. NaN for values
// that do not vary.
struct Shape {
  double skewness = 0.0;
  double kurtosis = 0.0;  // 3 for a normal distribution
};
Shape shapeOf(std::span<const double> x);

// Jarque & Bera (1980): n (skewness^2 / 6 + (kurtosis - 3)^2 / 24), chi-squared on 2, whatever the units of the values
// and to the end of the tail. Nothing for values that do not vary.
std::optional<ChiSquaredTest> jarqueBeraTest(std::span<const double> x);

struct MultivariateNormality {
  ChiSquaredTest skewness;  // on K
  ChiSquaredTest kurtosis;  // on K
  ChiSquaredTest joint;     // the sum of the two, on 2 K
};

// Skewness and kurtosis of the residuals standardised by the Cholesky factor of their covariance: n b1'b1 / 6 and n
// b2'b2 / 24 (Luetkepohl 2005, section 4.5). Depends on the order of the equations. Nothing when the residuals are
// linearly dependent.
std::optional<MultivariateNormality> choleskyNormality(ResidualList residuals);

// The omnibus test of Doornik & Hansen (2008), chi-squared on 2 K: skewness and kurtosis of the residuals standardised
// by the symmetric root of their correlation matrix, each transformed to be normal in small samples. Neither the order
// nor the units of the equations change it. Nothing when n < 8 or the residuals are linearly dependent.
std::optional<ChiSquaredTest> doornikHansen(ResidualList residuals);

}  // namespace engine
