#include "engine/regression/inference.h"

#include <gtest/gtest.h>

#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

TEST(Inference, KnownQuantilesAndTails) {
  EXPECT_NEAR(criticalValue(95), 1.959963984540054, kRounding);
  EXPECT_NEAR(criticalValue(90), 1.6448536269514722, kRounding);
  EXPECT_EQ(criticalValue(0), 0.0);
  EXPECT_EQ(criticalValue(100), std::numeric_limits<double>::infinity());
  EXPECT_NEAR(twoSidedPValue(2.0, 2), 1.0 - std::sqrt(2.0 / 3.0), kRounding);  // 1 - t / sqrt(2 + t^2)
  EXPECT_NEAR(twoSidedPValue(-1.0, 1), 0.5, kRounding);                        // Cauchy
  EXPECT_EQ(twoSidedPValue(3.0, 0), 1.0);
  EXPECT_EQ(twoSidedPValue(std::nan(""), 5), 1.0);
  // Beyond the reach of 1 - F: the tail of 2 df is about 1 / t^2.
  EXPECT_NEAR(twoSidedPValue(1e10, 2) * 1e20, 1.0, 1e-9);
}

TEST(Inference, CombinesVarianceInverseAndLevel) {
  const InverseDiagonal inverse{{1, -1, 0}, {-1, 0, 0}};  // 4, -1, 0
  const std::vector<double> coefficients = {3, 2, 1};
  const CoefficientInference result = inferCoefficients(coefficients, 0.25, inverse, 1, 95, LimitQuantile::normal);
  EXPECT_THAT(result.standardErrors, ElementsAre(1, 0, 0));
  EXPECT_THAT(result.tStatistics, ElementsAre(3, 0, 0));
  // Student's t with 1 df is Cauchy: 1 - (2 / pi) atan 3. A coefficient without a standard error is not tested.
  EXPECT_THAT(result.pValues, elementsNear({1.0 - 2.0 / M_PI * std::atan(3.0), 1, 1}, kRounding));
  EXPECT_THAT(result.lowerLimits, elementsNear({3.0 - 1.959963984540054, 2, 1}, kRounding));
  EXPECT_THAT(result.upperLimits, elementsNear({3.0 + 1.959963984540054, 2, 1}, kRounding));
  const auto student = inferCoefficients(coefficients, 0.25, inverse, 1, 50, LimitQuantile::studentT);
  EXPECT_THAT(student.upperLimits, elementsNear({4, 2, 1}, kRounding));  // the upper quartile of Cauchy is 1
  EXPECT_THAT(inferCoefficients(coefficients, 0.25, inverse, 1, 100, LimitQuantile::normal).lowerLimits,
              ElementsAre(-std::numeric_limits<double>::infinity(), 2, 1));
}

// Variance and unit each in range, their product not.
TEST(Inference, StandardErrorsOfExtremeUnits) {
  const InverseDiagonal inverse{{1e200, 1e-200}, {664, -664}};
  EXPECT_NEAR(standardError(1e200, inverse, 0) / std::ldexp(1e200, -664), 1.0, kRounding);
  EXPECT_NEAR(standardError(1e-200, inverse, 1) / std::ldexp(1e-200, 664), 1.0, kRounding);
}

}  // namespace
}  // namespace engine
