// Every bound of the statistics, looked at from both sides.

#include <gtest/gtest.h>

#include <sstream>

#include "engine/diagnostics/autocorrelation.h"
#include "engine/diagnostics/descriptives.h"
#include "engine/diagnostics/fit_measures.h"
#include "engine/diagnostics/residual_tests.h"
#include "engine/dynamics/forecast_recursion.h"
#include "engine/linear_algebra/lu.h"
#include "engine/regression/inference.h"
#include "engine/regression/residual_covariance.h"
#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

// A hair above and below a bound, and the bound itself where a computation reaches it exactly.
constexpr double kAbove = 1.001;
constexpr double kBelow = 0.999;

TEST(Thresholds, CovarianceIsSingularBelowTheBoundOnEitherSideOfZero) {
  EXPECT_FALSE(isSingularDeterminant(1e-12));
  EXPECT_TRUE(isSingularDeterminant(1e-12 * kBelow));
  EXPECT_FALSE(isSingularDeterminant(-1e-12 * kAbove));
  EXPECT_TRUE(isSingularDeterminant(-1e-12 * kBelow));
}

TEST(Thresholds, CorrelationNeedsAScaleAboveItsBound) {
  const auto correlationAt = [](double scale) { return correlationFromCovariance({{scale, 0}, {scale, scale}})[1][0]; };
  EXPECT_EQ(correlationAt(1e-12 * kAbove), 1.0);
  EXPECT_EQ(correlationAt(1e-12 * kBelow), 0.0);
}

TEST(Thresholds, VariancesDivideByWhatIsLeft) {
  ResidualMoments moments{Matrix(1, 1), {6.0}, 3};
  moments.products(0, 0) = 14.0;  // of 1, 2, 3
  EXPECT_EQ(residualVariance(moments, 0, 2), 2.0);
  EXPECT_EQ(residualVariance(moments, 0, 3), 0.0);
  EXPECT_NEAR(residualCovarianceMatrix(moments)[0][0], 2.0 / 3, kRounding);
  EXPECT_EQ(describe(std::vector<double>{1, 3}).standardDeviation, std::sqrt(2.0));
  EXPECT_EQ(describe(std::vector<double>{1}).standardDeviation, 0.0);
}

TEST(Thresholds, JarqueBeraFloorsItsTailFromTenOn) {
  // -1 and 1 in equal parts: S = 0, K = 1, JB = n / 6.
  const auto halves = [](std::size_t n) {
    std::vector<double> residuals(n, 1.0);
    std::fill(residuals.begin(), residuals.begin() + static_cast<std::ptrdiff_t>(n / 2), -1.0);
    return jarqueBera(residuals)->pValue;
  };
  EXPECT_NEAR(halves(58), std::exp(-58.0 / 12), kRounding);
  EXPECT_NEAR(halves(60), 1e-6, 1e-20);
  // Four of sixty at 1.1 instead of 1: JB = 2.5 (K - 3)^2 is just below the bound.
  std::vector<double> close(60, 1.0);
  for (std::size_t i = 0; i < 60; ++i) close[i] = (i % 2 == 0 ? 1 : -1) * (i < 4 ? 1.1 : 1.0);
  EXPECT_NEAR(jarqueBera(close)->statistic, 9.97, 0.01);
  EXPECT_GT(jarqueBera(close)->pValue, 6e-3);
  const auto four = [](double deviation) {
    return jarqueBera(std::vector<double>{deviation, -deviation, deviation, -deviation}).has_value();
  };
  EXPECT_TRUE(four(1e-6 * kAbove));
  EXPECT_FALSE(four(1e-6 * kBelow));
}

TEST(Thresholds, AutocorrelationsNeedVariationAndFewerLagsThanValues) {
  const auto first = [](double sum) {
    const double deviation = std::sqrt(sum / 2);
    return autocorrelations(std::vector<double>{deviation, -deviation}, 1)->values[0];
  };
  EXPECT_NEAR(first(1e-10 * kAbove), -0.5, kRounding);
  EXPECT_EQ(first(1e-10 * kBelow), 0.0);
  EXPECT_FALSE(autocorrelations(std::vector<double>{1, 2}, 2));
  EXPECT_FALSE(autocorrelations(std::vector<double>{1, 2}, 0));
  EXPECT_FALSE(ljungBox(std::vector<double>{1, 2}, 2));
}

TEST(Thresholds, FitMeasuresLeaveOutWhatHasNoScale) {
  const auto percent = [](double y) {
    return errorMeasures(std::vector<double>{y}, std::vector<double>{y}).meanAbsolutePercent;
  };
  EXPECT_EQ(percent(1e-10 * kAbove), 100.0);
  EXPECT_EQ(percent(-1e-10 * kAbove), 100.0);
  EXPECT_EQ(percent(1e-10), 0.0);
  EXPECT_EQ(percent(1e-10 * kBelow), 0.0);
}

TEST(Thresholds, TailsKeepTheirDigitsToTheSmallestNumbers) {
  for (const double t : {1e45, 1e60, 1e75}) EXPECT_NEAR(twoSidedPValue(t, 4) / 6 * t * t * t * t, 1.0, 1e-12) << t;
  EXPECT_GT(twoSidedPValue(std::pow(10.0, 61.9), 5), 0.0);  // 6e-309
}

TEST(Thresholds, SquareSystemsAndTheLeastPivot) {
  Matrix inverse;
  EXPECT_TRUE(invertCrossProduct(matrixOf({{1, 0}, {0, 2}}), inverse));
  EXPECT_FALSE(invertCrossProduct(matrixOf({{1, 2}}), inverse));
  EXPECT_FALSE(factorizeLu(matrixOf({{5e-324}})).singular);
  EXPECT_TRUE(factorizeLu(matrixOf({{0.0}})).singular);
}

TEST(Thresholds, ForecastsSayWhichCoefficientIsMissing) {
  std::ostringstream trace;
  EXPECT_THAT(recursiveForecasts({{1, 2}, {3}}, {{1}, {1}}, 1, 1, trace),
              ::testing::Optional(ElementsAre(ElementsAre(3), ElementsAre(3))));
  EXPECT_EQ(trace.str(),
            "      WARNING: Missing coefficient for lag 1 variable 1 (coeffIdx=2, coeffs.size()=2)\n"
            "      WARNING: Missing coefficient for lag 1 variable 0 (coeffIdx=1, coeffs.size()=1)\n"
            "      WARNING: Missing coefficient for lag 1 variable 1 (coeffIdx=2, coeffs.size()=1)\n");
  EXPECT_FALSE(recursiveForecasts({{1}}, {{1}, {1}}, 1, 1, trace));
}

}  // namespace
}  // namespace engine
