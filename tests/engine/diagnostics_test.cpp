#include <gtest/gtest.h>

#include <string>

#include "engine/diagnostics/autocorrelation.h"
#include "engine/diagnostics/fit_measures.h"
#include "engine/diagnostics/residual_tests.h"
#include "engine/linear_algebra/eigenvalues.h"
#include "engine/regression/residual_covariance.h"
#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Autocorrelations, HandValuesWithBartlettErrors) {
  // Deviations of 1, 2, 3, 4 from 2.5: r(1) = 1.25 / 5, r(2) = -1.5 / 5, r(3) = -2.25 / 5.
  const auto acf = autocorrelations(std::vector<double>{1, 2, 3, 4}, 3);
  ASSERT_TRUE(acf);
  EXPECT_THAT(acf->values, elementsNear({0.25, -0.3, -0.45}, kRounding));
  EXPECT_THAT(acf->standardErrors, elementsNear({0.5, std::sqrt(1.125 / 4), std::sqrt((1.125 + 0.18) / 4)}, kRounding));
  const auto constant = autocorrelations(std::vector<double>(6, 3.0), 2);
  ASSERT_TRUE(constant);
  EXPECT_THAT(constant->values, ElementsAre(0, 0));
  EXPECT_FALSE(autocorrelations(std::vector<double>{1, 2, 3}, 3));
}

TEST(LjungBox, HandValueAndTail) {
  // n = 4, r = 0.25, -0.3: Q = 24 (0.0625 / 3 + 0.09 / 2) = 1.58; chi-squared with 2 df has the tail exp(-Q / 2).
  const auto test = ljungBox(std::vector<double>{1, 2, 3, 4}, 2);
  ASSERT_TRUE(test);
  EXPECT_NEAR(test->statistic, 1.58, kRounding);
  EXPECT_NEAR(test->pValue, std::exp(-0.79), kRounding);
}

TEST(LjungBox, LagCountIsTheCycleOfTheFinestUnit) {
  const std::vector<std::pair<std::vector<std::string>, std::int32_t>> cases = {{{"YEAR"}, 1},
                                                                                {{"YEAR", "QUARTER"}, 4},
                                                                                {{"YEAR", "QUARTER", "MONTH"}, 12},
                                                                                {{"WEEK", "DAY"}, 7},
                                                                                {{"YEAR", "WEEK"}, 52},
                                                                                {{"DAY", "HOUR"}, 24},
                                                                                {{"MINUTE", "HOUR"}, 60},
                                                                                {{"SECOND", "YEAR"}, 60},
                                                                                {{"OBS"}, 9},
                                                                                {{}, 9}};
  for (const auto& [names, lags] : cases) {
    EXPECT_EQ(ljungBoxLagCount(names, 9), lags) << ::testing::PrintToString(names);
  }
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

TEST(FitMeasures, AreZeroWhereUndefined) {
  EXPECT_EQ(rSquare(1.0, std::vector<double>(4, 2.0)), 0.0);
  EXPECT_EQ(adjustedRSquare(0.8, 4, 3), 0.0);
  EXPECT_NEAR(adjustedRSquare(0.8, 5, 3), 0.2, kRounding);
  // An actual value of 0 has no percentage and is not counted.
  EXPECT_EQ(errorMeasures(std::vector<double>{1, -1}, std::vector<double>{2, 0}).meanAbsolutePercent, 50);
  EXPECT_EQ(errorMeasures(std::vector<double>{3}, std::vector<double>{0}).meanAbsolutePercent, 0.0);
  EXPECT_EQ(errorMeasures(std::vector<double>{3}, std::vector<double>{1, 2}).meanSquared, 0.0);
}

TEST(Correlation, ScalesClampsAndRefuses) {
  EXPECT_THAT(correlationFromCovariance({{4, 3}, {3, 9}}), ElementsAre(ElementsAre(1, 0.5), ElementsAre(0.5, 1)));
  EXPECT_THAT(correlationFromCovariance({{1, 1.0000000001}, {-1.5, 1}}),
              ElementsAre(ElementsAre(1, 1), ElementsAre(-1, 1)));
  EXPECT_THAT(correlationFromCovariance({{0, 1}, {1, 9}}), ElementsAre(ElementsAre(1, 0), ElementsAre(0, 1)));
  EXPECT_THAT(correlationFromCovariance({{1, 0}, {0, -1}}), IsEmpty());
}

TEST(Eigenvalues, KnownSpectra) {
  EXPECT_THAT(eigenvaluesOf({{1, 0.5}, {0.5, 1}}),
              ::testing::UnorderedPointwise(::testing::DoubleNear(kRounding), {1.5, 0.5}));
  // Equicorrelation c among three: 1 + 2c once, 1 - c twice.
  EXPECT_THAT(eigenvaluesOf({{1, 0.2, 0.2}, {0.2, 1, 0.2}, {0.2, 0.2, 1}}),
              ::testing::UnorderedPointwise(::testing::DoubleNear(kRounding), {1.4, 0.8, 0.8}));
}

}  // namespace
}  // namespace engine
