#include "algo/lag_regression.h"

#include <gtest/gtest.h>

#include "algo/condition.h"
#include "algo/inference.h"
#include "algo/regression_rows.h"
#include "tests/algo/numeric_support.h"
#include "tests/algo/plain_least_squares.h"

namespace varmodel {
namespace {

using ::testing::ElementsAre;

// In standard errors: both ways round differently, by the square of these data's condition number, at most 1e5.
constexpr double kPlainLoops = 1e-7;

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

LagFit fitOf(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t lag) {
  LagRegression regression(endogenous, exogenous, lag);
  return regression.fit(lag).value();
}

struct DataCase {
  const char* name;
  SeriesList endogenous;
  SeriesList exogenous;
};

SeriesList noiseSeries(std::size_t count, std::size_t length) {
  SeriesList result;
  for (std::size_t i = 0; i < count; ++i) result.push_back(noise(100 + i, length));
  return result;
}

// The last three are large enough to be computed in doubles, unless their digits call for more.
std::vector<DataCase> dataCases() {
  SeriesList units = noiseSeries(2, 150);
  for (double& value : units[0]) value *= 1e13;
  SeriesList level = noiseSeries(2, 150);
  for (double& value : level[1]) value += 100.0;
  SeriesList spiked = noiseSeries(9, 2500);
  spiked[0][2498] = 1e4;
  return {{"one series", noiseSeries(1, 90), {}},
          {"units far apart", units, {}},
          {"level", level, {noise(21, 150)}},
          {"nine series", noiseSeries(9, 2500), {}},
          {"exogenous", noiseSeries(10, 2000), {noise(19, 2000), noise(20, 2000)}},
          {"outlier in the last rows", spiked, {}}};
}

// Every lag order, from shared sums in another order of operations, against the plain loops.
TEST(LagRegression, AgreesWithPlainLoopsAtEveryLag) {
  constexpr std::int32_t kMaxLag = 4;
  for (const DataCase& one : dataCases()) {
    SCOPED_TRACE(one.name);
    LagRegression regression(one.endogenous, one.exogenous, kMaxLag);
    for (std::int32_t lag = 1; lag <= kMaxLag; ++lag) {
      const auto order = static_cast<std::size_t>(lag);
      const auto fit = regression.fit(lag);
      const Matrix x = designMatrix(one.endogenous, one.exogenous, kMaxLag, order);
      const auto plain = fitPlainly(x, targetMatrix(one.endogenous, kMaxLag));
      ASSERT_TRUE(fit && plain);
      const std::vector<double> diagonal = regression.inverseDiagonal();
      for (std::size_t i = 0; i < one.endogenous.size(); ++i) {
        const double variance = residualVariance(fit->moments, i, std::ssize(diagonal));
        for (std::size_t j = 0; j < diagonal.size(); ++j) {
          const double error = plain->standardErrors(j, i);
          EXPECT_NEAR(fit->coefficients[i][j], plain->coefficients(j, i), kPlainLoops * error);
          EXPECT_NEAR(std::sqrt(variance * diagonal[j]), error, kPlainLoops * error);
        }
        const double scale = std::sqrt(variance);
        EXPECT_THAT(fit->residuals[i], elementsNear(columnOf(plain->residuals, i), kPlainLoops * scale));
      }
    }
  }
}

// Integers at a level of 1e8: the constant is the small difference of large numbers.
TEST(LagRegression, RecoversTheCoefficientsThatMadeTheData) {
  std::vector<double> first = noise(22, 200);
  std::vector<double> second = noise(23, 200);
  std::vector<double> target(first.size());
  for (std::size_t t = 0; t < first.size(); ++t) {
    first[t] = 1e8 + std::round(1e6 * first[t]);
    second[t] = 1e8 + std::round(1e6 * second[t]);
    target[t] = 8.0 + 2.0 * first[t] - second[t];
  }
  const LagFit fit = fitOf({target}, {first, second}, 1);
  EXPECT_NEAR(fit.coefficients[0][0], 8.0, 1e-5);
  EXPECT_NEAR(fit.coefficients[0][2], 2.0, 1e-13);
  EXPECT_NEAR(fit.coefficients[0][3], -1.0, 1e-13);
}

TEST(LagRegression, ResidualsAreOrthogonalToTheRegressors) {
  const SeriesList endogenous = {noise(23, 120), noise(24, 120)};
  const LagFit fit = fitOf(endogenous, {}, 3);
  const Matrix x = designMatrix(endogenous, {}, 3, 3);
  for (const std::vector<double>& residuals : fit.residuals) {
    for (std::size_t j = 0; j < x.columns; ++j) {
      double sum = 0.0;
      for (std::size_t r = 0; r < x.rows; ++r) sum += x(r, j) * residuals[r];
      EXPECT_NEAR(sum, 0.0, kRounding * 10);
    }
  }
}

// Two series that differ by a hundred-thousandth: ten digits of the cross-products are lost, twice the precision has
// them.
TEST(LagRegression, KeepsDigitsOfNearlyCollinearSeries) {
  std::vector<double> first = noise(25, 300);
  std::vector<double> second = noise(26, 300);
  std::vector<double> target = noise(27, 300);
  for (std::size_t t = 0; t < first.size(); ++t) {
    first[t] = std::round(first[t] * 1024) / 1024;
    second[t] = first[t] + std::round(second[t] * 1024) / 1024 * std::ldexp(1.0, -20);
    target[t] = 3.0 * first[t] - 2.0 * second[t];
  }
  const LagFit fit = fitOf({target}, {first, second}, 1);
  EXPECT_THAT(fit.coefficients[0], elementsNear({0, 0, 3, -2}, 1e-10));
}

TEST(LagRegression, RefusesAnExactlySingularDesign) {
  const SeriesList twice = {noise(28, 60), noise(28, 60)};
  const SeriesList none;
  LagRegression doubled(twice, none, 2);
  const auto fit = doubled.fit(1);
  EXPECT_TRUE(!fit || classifyCondition(fit->reciprocalCondition, 3) == Conditioning::singular);
}

TEST(ResidualVariance, CentresAndIsZeroWithoutFreedom) {
  const ResidualMoments moments{matrixOf({{50}}), {12}, 4};  // 1, 2, 3, 6
  EXPECT_NEAR(residualVariance(moments, 0, 2), 7.0, kRounding);
  EXPECT_EQ(residualVariance(moments, 0, 4), 0.0);
  EXPECT_EQ(residualVariance({matrixOf({{0}}), {0}, 0}, 0, 2), 0.0);
}

TEST(Inference, KnownQuantilesAndTails) {
  EXPECT_NEAR(criticalValue(95), 1.959963984540054, kRounding);
  EXPECT_NEAR(criticalValue(90), 1.6448536269514722, kRounding);
  EXPECT_EQ(criticalValue(0), 0.0);
  EXPECT_EQ(criticalValue(100), std::numeric_limits<double>::infinity());
  EXPECT_NEAR(twoSidedPValue(2.0, 2), 1.0 - std::sqrt(2.0 / 3.0),
              kRounding);                                // t / sqrt(2 + t^2) inside
  EXPECT_NEAR(twoSidedPValue(-1.0, 1), 0.5, kRounding);  // Cauchy
  EXPECT_EQ(twoSidedPValue(0.0, 5), 1.0);
  EXPECT_EQ(twoSidedPValue(3.0, 0), 1.0);
  EXPECT_EQ(twoSidedPValue(std::nan(""), 5), 1.0);
  // Beyond the reach of 1 - F: 2 df has the closed tail 1 - t / sqrt(2 + t^2), about 1 / t^2.
  EXPECT_NEAR(twoSidedPValue(1e10, 2) * 1e20, 1.0, 1e-9);
}

TEST(Inference, CombinesVarianceInverseAndLevel) {
  const std::vector<double> inverse = {4, -1, 0};
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
      inferCoefficients(std::vector<double>{3.0, 2.0}, 1.0, std::vector<double>{4, 0}, 1, 100);
  constexpr double infinity = std::numeric_limits<double>::infinity();
  EXPECT_THAT(result.lowerLimits, ElementsAre(-infinity, 2));
  EXPECT_THAT(result.upperLimits, ElementsAre(infinity, 2));
}

}  // namespace
}  // namespace varmodel
