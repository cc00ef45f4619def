#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "algo/autocorrelation.h"
#include "algo/descriptives.h"
#include "algo/fit_measures.h"
#include "algo/residual_covariance.h"
#include "algo/residual_tests.h"
#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Describe, KnownSeries) {
  const Descriptives four = describe(std::vector<double>{2, 4, 1, 3});
  EXPECT_EQ(four.n, 4u);
  EXPECT_EQ(four.mean, 2.5);
  EXPECT_NEAR(four.standardDeviation, 1.2909944487358056, kRounding);
  EXPECT_EQ(four.minimum, 1);
  EXPECT_EQ(four.maximum, 4);
  const Descriptives one = describe(std::vector<double>{-7});
  EXPECT_EQ(one.n, 1u);
  EXPECT_EQ(one.mean, -7);
  EXPECT_EQ(one.standardDeviation, 0);
  EXPECT_EQ(one.minimum, -7);
  EXPECT_EQ(one.maximum, -7);
  EXPECT_EQ(describe(std::vector<double>(9, 0.5)).standardDeviation, 0);
  EXPECT_EQ(describe({}).n, 0u);
}

TEST(Autocorrelations, HandValuesWithBartlettErrors) {
  // Deviations of 1, 2, 3, 4 from 2.5: r(1) = 1.25 / 5, r(2) = -1.5 / 5, r(3) = -2.25 / 5.
  const auto acf = autocorrelations(std::vector<double>{1, 2, 3, 4}, 3);
  ASSERT_TRUE(acf);
  EXPECT_THAT(acf->values, elementsNear({0.25, -0.3, -0.45}, kRounding));
  EXPECT_THAT(acf->standardErrors, elementsNear({0.5, std::sqrt(1.125 / 4), std::sqrt((1.125 + 0.18) / 4)}, kRounding));
}

TEST(Autocorrelations, ConstantSeriesAndRefusals) {
  const auto constant = autocorrelations(std::vector<double>(6, 3.0), 2);
  ASSERT_TRUE(constant);
  EXPECT_THAT(constant->values, ElementsAre(0, 0));
  EXPECT_THAT(constant->standardErrors, ElementsAre(0, 0));
  EXPECT_FALSE(autocorrelations({}, 1));
  EXPECT_FALSE(autocorrelations(std::vector<double>{1, 2, 3}, 0));
  EXPECT_FALSE(autocorrelations(std::vector<double>{1, 2, 3}, 3));
}

TEST(LjungBox, HandValueAndTail) {
  // n = 4, r = 0.25, -0.3: Q = 24 (0.0625 / 3 + 0.09 / 2) = 1.58; chi-squared with 2 df has the tail exp(-Q / 2).
  const auto test = ljungBox(std::vector<double>{1, 2, 3, 4}, 2);
  ASSERT_TRUE(test);
  EXPECT_NEAR(test->statistic, 1.58, kRounding);
  EXPECT_NEAR(test->pValue, std::exp(-0.79), kRounding);
  EXPECT_FALSE(ljungBox(noise(1, 12), 12));
}

TEST(LjungBox, LagCountIsTheCycleOfTheFinestUnit) {
  struct Case {
    std::vector<std::string> names;
    std::int32_t lags;
  };
  const std::vector<Case> cases = {
      {{"YEAR"}, 1},
      {{"YEAR", "QUARTER"}, 4},
      {{"YEAR", "QUARTER", "MONTH"}, 12},
      {{"WEEK", "DAY"}, 7},
      {{"YEAR", "WEEK"}, 52},
      {{"DAY", "HOUR"}, 24},
      {{"HOUR", "MINUTE"}, 60},
      {{"SECOND", "YEAR"}, 60},
      {{"OBS"}, 9},
      {{"quarter"}, 9},
      {{}, 9},
  };
  for (const Case& one : cases)
    EXPECT_EQ(ljungBoxLagCount(one.names, 9), one.lags) << ::testing::PrintToString(one.names);
}

TEST(JarqueBera, HandValueFloorAndRefusals) {
  // -1, -1, 1, 1: S = 0, K = 1, so JB = 4 * 4 / 24.
  const auto flat = jarqueBera(std::vector<double>{-1, 1, -1, 1});
  ASSERT_TRUE(flat);
  EXPECT_NEAR(flat->statistic, 2.0 / 3, kRounding);
  EXPECT_NEAR(flat->pValue, std::exp(-1.0 / 3), kRounding);
  // One 9 among nine 0: S = 8 / 3, K = 73 / 9: JB = 10 (64 / 54 + (46 / 9)^2 / 24).
  std::vector<double> spike(10, 0.0);
  spike[4] = 9.0;
  const auto heavy = jarqueBera(spike);
  ASSERT_TRUE(heavy);
  EXPECT_NEAR(heavy->statistic, 640.0 / 54 + 10 * 2116.0 / 81 / 24, 1e-12);
  EXPECT_EQ(heavy->pValue, 1e-6);
  EXPECT_FALSE(jarqueBera(std::vector<double>{1, 2, 3}));
  EXPECT_FALSE(jarqueBera(std::vector<double>(5, 2.0)));
}

TEST(FitMeasures, RSquares) {
  const std::vector<double> y = {1, 2, 3, 4};
  EXPECT_NEAR(rSquare(1.0, y), 0.8, kRounding);
  EXPECT_EQ(rSquare(1.0, std::vector<double>(4, 2.0)), 0.0);
  EXPECT_EQ(rSquare(1.0, {}), 0.0);
  EXPECT_NEAR(adjustedRSquare(0.8, 10, 3), 1 - 0.2 * 9 / 6, kRounding);
  EXPECT_EQ(adjustedRSquare(0.8, 4, 3), 0.0);
  EXPECT_NEAR(adjustedRSquare(0.8, 5, 3), 0.2, kRounding);
}

TEST(FitMeasures, ErrorMeasures) {
  const ErrorMeasures small = errorMeasures(std::vector<double>{1, -1}, std::vector<double>{2, 0});
  EXPECT_EQ(small.meanAbsolutePercent, 50);
  EXPECT_EQ(small.meanAbsolute, 1);
  const ErrorMeasures other = errorMeasures(std::vector<double>{3, -4}, std::vector<double>{-6, 10});
  EXPECT_EQ(other.meanSquared, 12.5);
  EXPECT_NEAR(other.rootMeanSquared, std::sqrt(12.5), kRounding);
  EXPECT_EQ(other.meanAbsolute, 3.5);
  EXPECT_NEAR(other.meanAbsolutePercent, 45, kRounding * 100);
  EXPECT_EQ(errorMeasures(std::vector<double>{3}, std::vector<double>{1, 2}).meanSquared, 0.0);
  EXPECT_EQ(errorMeasures(std::vector<double>{3}, std::vector<double>{0}).meanAbsolutePercent, 0.0);
}

TEST(ResidualCovariance, HandValuesWithDivisorN) {
  // The series 1, 2, 3, 6 and 2, 0, 2, 4.
  const auto covariance = residualCovarianceMatrix({matrixOf({{50, 32}, {32, 24}}), {12, 8}, 4});
  EXPECT_THAT(covariance, ElementsAre(ElementsAre(3.5, 2.0), ElementsAre(2.0, 2.0)));
  EXPECT_THROW(residualCovarianceMatrix(ResidualMoments{}), std::invalid_argument);
  EXPECT_THROW(residualCovarianceMatrix({matrixOf({{0}}), {0}, 0}), std::invalid_argument);
}

TEST(Correlation, ScalesClampsAndRefuses) {
  EXPECT_THAT(correlationFromCovariance({{4, 3}, {3, 9}}), ElementsAre(ElementsAre(1, 0.5), ElementsAre(0.5, 1)));
  EXPECT_THAT(correlationFromCovariance({{1, 1.0000000001}, {-1.5, 1}}),
              ElementsAre(ElementsAre(1, 1), ElementsAre(-1, 1)));
  EXPECT_THAT(correlationFromCovariance({{0, 1}, {1, 9}}), ElementsAre(ElementsAre(1, 0), ElementsAre(0, 1)));
  EXPECT_THAT(correlationFromCovariance({}), IsEmpty());
  EXPECT_THAT(correlationFromCovariance({{1, 2}, {1}}), IsEmpty());
  EXPECT_THAT(correlationFromCovariance({{1, 0}, {0, -1}}), IsEmpty());
}

TEST(Eigenvalues, KnownSpectra) {
  EXPECT_THAT(eigenvaluesOf({{1, 0.5}, {0.5, 1}}),
              ::testing::UnorderedPointwise(::testing::DoubleNear(kRounding), {1.5, 0.5}));
  // Equicorrelation c among three: 1 + 2c once, 1 - c twice.
  EXPECT_THAT(eigenvaluesOf({{1, 0.2, 0.2}, {0.2, 1, 0.2}, {0.2, 0.2, 1}}),
              ::testing::UnorderedPointwise(::testing::DoubleNear(kRounding), {1.4, 0.8, 0.8}));
  EXPECT_THAT(eigenvaluesOf({}), IsEmpty());
  EXPECT_THAT(eigenvaluesOf({{1, 0}}), IsEmpty());
  EXPECT_THAT(eigenvaluesOf({{1, std::nan("")}, {std::nan(""), 1}}), IsEmpty());
}

}  // namespace
}  // namespace varmodel
