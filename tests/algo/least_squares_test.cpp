#include "algo/least_squares.h"

#include <gtest/gtest.h>

#include "algo/design_matrix.h"
#include "algo/inference.h"
#include "algo/products.h"
#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

TEST(DesignMatrix, ColumnsAreConstantLagsBySeriesThenExogenous) {
  const SeriesList endogenous = {{1, 2, 3, 4, 5}, {10, 20, 30, 40, 50}};
  const SeriesList exogenous = {{0.1, 0.2, 0.3, 0.4, 0.5}};
  ASSERT_EQ(regressorCount(2, 1, 2), 6);
  EXPECT_THAT(designMatrix(endogenous, exogenous, 3, 2).values, ElementsAre(1, 3, 30, 2, 20, 0.4,  //
                                                                            1, 4, 40, 3, 30, 0.5));
  // A smaller lag keeps the rows of MAXLAG.
  EXPECT_THAT(designMatrix(endogenous, {}, 3, 1).values, ElementsAre(1, 3, 30, 1, 4, 40));
  EXPECT_THAT(targetMatrix(endogenous, 3).values, ElementsAre(4, 40, 5, 50));
}

TEST(DesignMatrix, AlignmentSeesEverySeries) {
  EXPECT_TRUE(seriesAreAligned({{1, 2}, {3, 4}}, {{5, 6}}, 2));
  EXPECT_FALSE(seriesAreAligned({{1, 2}, {3}}, {}, 2));
  EXPECT_FALSE(seriesAreAligned({{1, 2}}, {{5, 6, 7}}, 2));
}

TEST(LeastSquares, FitsALineByHand) {
  // y = 1, 2, 4 on x = 0, 1, 2: slope 3/2, intercept 5/6, residuals 1/6, -1/3, 1/6.
  const auto fit = fitLeastSquares(matrixOf({{1, 0}, {1, 1}, {1, 2}}), matrixOf({{1}, {2}, {4}}));
  ASSERT_TRUE(fit);
  EXPECT_THAT(fit->coefficients[0], elementsNear({5.0 / 6, 1.5}, kRounding));
  EXPECT_THAT(fit->fitted.values, elementsNear({5.0 / 6, 7.0 / 3, 23.0 / 6}, kRounding));
  EXPECT_THAT(fit->residuals[0], elementsNear({1.0 / 6, -1.0 / 3, 1.0 / 6}, kRounding));
  EXPECT_NEAR(residualVariance(fit->residuals[0], 2), 1.0 / 6, kRounding);
}

// A problem made from its solution: noise orthogonal to the regressors is not needed, since y = X b exactly.
TEST(LeastSquares, RecoversTheCoefficientsThatMadeTheData) {
  Matrix x(60, 5);
  x.values = noise(5, x.values.size());
  Matrix truth(5, 3);
  truth.values = noise(6, truth.values.size());
  const auto fit = fitLeastSquares(x, product(x, truth));
  ASSERT_TRUE(fit);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_THAT(fit->coefficients[i], elementsNear(columnOf(truth, i), kRounding));
    EXPECT_THAT(fit->residuals[i], Each(::testing::DoubleNear(0.0, kRounding)));
  }
}

// Levels with a trend: without refinement the constant is off by 7e-6.
TEST(LeastSquares, KeepsDigitsOnBadlyScaledRegressors) {
  Matrix x(200, 3);
  for (std::size_t r = 0; r < x.rows; ++r) {
    const double trend = 10000.0 + static_cast<double>(r);
    std::ranges::copy(std::vector<double>{1.0, trend, 0.5 * trend + static_cast<double>(r * r % 17)}, x.row(r).begin());
  }
  const Matrix truth = matrixOf({{8}, {2}, {-1}});
  const auto fit = fitLeastSquares(x, product(x, truth));
  ASSERT_TRUE(fit);
  EXPECT_THAT(fit->coefficients[0], elementsNear({8, 2, -1}, 1e-9));
}

TEST(LeastSquares, ResidualsAreOrthogonalToTheRegressors) {
  Matrix x(80, 4);
  x.values = noise(8, x.values.size());
  Matrix y(80, 2);
  y.values = noise(9, y.values.size());
  const auto fit = fitLeastSquares(x, y);
  ASSERT_TRUE(fit);
  Matrix residuals(80, 2);
  for (std::size_t r = 0; r < 80; ++r) {
    for (std::size_t i = 0; i < 2; ++i) residuals(r, i) = fit->residuals[i][r];
  }
  EXPECT_THAT(crossProduct(x, residuals).values, Each(::testing::DoubleNear(0.0, kRounding * 10)));
}

TEST(LeastSquares, RefusesAnExactlySingularDesign) {
  EXPECT_FALSE(fitLeastSquares(matrixOf({{1, 2}, {1, 2}, {1, 2}}), matrixOf({{1}, {2}, {4}})));
}

TEST(ResidualVariance, CentresAndIsZeroWithoutFreedom) {
  EXPECT_NEAR(residualVariance(std::vector<double>{1, 2, 3, 6}, 2), 7.0, kRounding);
  EXPECT_EQ(residualVariance(std::vector<double>{1, 2}, 2), 0.0);
  EXPECT_EQ(residualVariance(std::vector<double>{}, 2), 0.0);
}

TEST(Inference, KnownQuantilesAndTails) {
  EXPECT_NEAR(criticalValue(95), 1.959963984540054, kRounding);
  EXPECT_NEAR(criticalValue(90), 1.6448536269514722, kRounding);
  EXPECT_EQ(criticalValue(0), 0.0);
  EXPECT_EQ(criticalValue(100), std::numeric_limits<double>::infinity());
  EXPECT_NEAR(twoSidedPValue(2.0, 2), 1.0 - std::sqrt(2.0 / 3.0), kRounding);  // t / sqrt(2 + t^2) inside
  EXPECT_NEAR(twoSidedPValue(-1.0, 1), 0.5, kRounding);                        // Cauchy
  EXPECT_EQ(twoSidedPValue(0.0, 5), 1.0);
  EXPECT_EQ(twoSidedPValue(3.0, 0), 1.0);
  EXPECT_EQ(twoSidedPValue(std::nan(""), 5), 1.0);
  // Beyond the reach of 1 - F: 2 df has the closed tail 1 - t / sqrt(2 + t^2), about 1 / t^2.
  EXPECT_NEAR(twoSidedPValue(1e10, 2) * 1e20, 1.0, 1e-9);
}

TEST(Inference, CombinesVarianceInverseAndLevel) {
  const Matrix inverse = matrixOf({{4, 0, 0}, {0, -1, 0}, {0, 0, 0}});
  const CoefficientInference result = inferCoefficients(std::vector<double>{3.0, 2.0, 1.0}, 0.25, inverse, 1, 95);
  EXPECT_THAT(result.standardErrors, ElementsAre(1, 0, 0));
  EXPECT_THAT(result.tStatistics, ElementsAre(3, 0, 0));
  // Student's t with 1 df is Cauchy: 1 - (2 / pi) atan 3. A coefficient without a standard error is not tested.
  EXPECT_THAT(result.pValues, elementsNear({1.0 - 2.0 / M_PI * std::atan(3.0), 1, 1}, kRounding));
  EXPECT_THAT(result.lowerLimits, elementsNear({3.0 - 1.959963984540054, 2, 1}, kRounding));
  EXPECT_THAT(result.upperLimits, elementsNear({3.0 + 1.959963984540054, 2, 1}, kRounding));
}

TEST(Inference, FullConfidenceHasInfiniteLimitsOnlyWhereThereIsAnError) {
  const CoefficientInference result =
      inferCoefficients(std::vector<double>{3.0, 2.0}, 1.0, matrixOf({{4, 0}, {0, 0}}), 1, 100);
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_THAT(result.lowerLimits, ElementsAre(-infinity, 2));
  EXPECT_THAT(result.upperLimits, ElementsAre(infinity, 2));
}

}  // namespace
}  // namespace varmodel
