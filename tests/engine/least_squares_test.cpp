#include "engine/regression/lag_regression.h"

#include <gtest/gtest.h>

#include "engine/regression/inference.h"
#include "tests/engine/numeric_support.h"
#include "tests/engine/plain_least_squares.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

// In standard errors: both ways round differently, by the square of these data's condition number, at most 1e5.
constexpr double kPlainLoops = 1e-7;

LagFit fitOf(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t lag) {
  LagRegression regression(endogenous, exogenous, lag);
  return regression.fit(lag).value();
}

struct DataCase {
  const char* name;
  SeriesList endogenous, exogenous;
};

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

// Two series that differ by a millionth: twelve digits of the cross-products are lost, twice the precision has them.
// The long series begin in doubles and are done again.
TEST(LagRegression, KeepsDigitsOfNearlyCollinearSeries) {
  for (const std::size_t length : {300u, 100000u}) {
    std::vector<double> first = noise(25, length);
    std::vector<double> second = noise(26, length);
    std::vector<double> target = noise(27, length);
    for (std::size_t t = 0; t < length; ++t) {
      first[t] = std::round(first[t] * 1024) / 1024;
      second[t] = first[t] + std::round(second[t] * 1024) / 1024 * std::ldexp(1.0, -20);
      target[t] = 3.0 * first[t] - 2.0 * second[t];
    }
    const LagFit fit = fitOf({target}, {first, second}, 1);
    EXPECT_THAT(fit.coefficients[0], elementsNear({0, 0, 3, -2}, 1e-10));
  }
}

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
  const std::vector<double> inverse = {4, -1, 0};
  const std::vector<double> coefficients = {3, 2, 1};
  const CoefficientInference result = inferCoefficients(coefficients, 0.25, inverse, 1, 95);
  EXPECT_THAT(result.standardErrors, ElementsAre(1, 0, 0));
  EXPECT_THAT(result.tStatistics, ElementsAre(3, 0, 0));
  // Student's t with 1 df is Cauchy: 1 - (2 / pi) atan 3. A coefficient without a standard error is not tested.
  EXPECT_THAT(result.pValues, elementsNear({1.0 - 2.0 / M_PI * std::atan(3.0), 1, 1}, kRounding));
  EXPECT_THAT(result.lowerLimits, elementsNear({3.0 - 1.959963984540054, 2, 1}, kRounding));
  EXPECT_THAT(result.upperLimits, elementsNear({3.0 + 1.959963984540054, 2, 1}, kRounding));
  EXPECT_THAT(inferCoefficients(coefficients, 0.25, inverse, 1, 100).lowerLimits,
              ElementsAre(-std::numeric_limits<double>::infinity(), 2, 1));
}

}  // namespace
}  // namespace engine
