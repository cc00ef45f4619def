// Causality tests and the measures of fit, against other programs and against the identities between them.

#include "engine/dynamics/causality.h"
#include "engine/dynamics/equation_fit.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

constexpr double kComplement = 1e-14;  // other programs give p-values as 1 - F

class CausalityReference : public testing::TestWithParam<std::size_t> {};

TEST_P(CausalityReference, AgreesWithAnIndependentProgram) {
  const rapidjson::Document wanted = reference("us_dlog_lag" + std::to_string(GetParam()));
  const Example model = fitted(growth(), GetParam());
  const GrangerCausality granger = grangerCausality(model.fit, GetParam());
  const Matrix covariance = residualCovariance(model.fit);
  expectAllClose(covariance, wanted["sigma_df_adjusted"], kReference);
  for (rapidjson::SizeType i = 0; i < 3; ++i) {
    const char* const name = wanted["names"][i].GetString();
    const rapidjson::Value& joint = wanted["granger_cause_on_all_others"][name];
    const FTest& seen = granger.eachOnOthers[i].value();
    EXPECT_TRUE(closeTo(seen.statistic, joint["statistic"].GetDouble(), kReference));
    EXPECT_NEAR(seen.pValue, joint["p"].GetDouble(), kComplement + kReference * seen.pValue);
    EXPECT_EQ(seen.numeratorDegrees, joint["df"][0].GetDouble());
    EXPECT_EQ(seen.denominatorDegrees, joint["df"][1].GetDouble());
    const ChiSquaredTest now = instantaneousCausality(model.fit, i).value();
    EXPECT_TRUE(closeTo(now.statistic, wanted["instantaneous"][name]["statistic"].GetDouble(), kReference));
    EXPECT_EQ(now.degreesOfFreedom, 2.0);
  }
}

INSTANTIATE_TEST_SUITE_P(Lags, CausalityReference, testing::Values(2, 4));

// Sum of squared residuals of equation `effect` without the lags 1..tested of `cause` among `lag` lags.
double restrictedSum(const SeriesList& series, std::size_t effect, std::size_t cause, std::size_t lag,
                     std::size_t tested) {
  SeriesList known;
  for (std::size_t l = 1; l <= lag; ++l) {
    for (std::size_t i = 0; i < series.size(); ++i) {
      if (i == effect || (i == cause && l <= tested)) continue;
      known.push_back(lagged(series[i], l));
    }
  }
  return equationFit(fitted({series[effect]}, lag, true, known).fit, {std::span(&series[effect], 1), known}, 0)
      .residualSumOfSquares;
}

TEST(Granger, IsTheFTestOfLeavingTheLagsOut) {
  const SeriesList series = growth();
  for (const std::size_t tested : {4u, 3u}) {  // 3 of 4: the augmented test
    const Example model = fitted(series, 4);
    const FTest test = grangerCausality(model.fit, tested).pairs[2][1].value();
    const double whole = equationFit(model.fit, model.sample(), 1).residualSumOfSquares;
    const double gain = restrictedSum(series, 1, 2, 4, tested) - whole;
    EXPECT_EQ(test.numeratorDegrees, double(tested));
    EXPECT_EQ(test.denominatorDegrees, 198.0 - 13);
    EXPECT_TRUE(closeTo(test.statistic, gain / double(tested) / (whole / (198.0 - 13)), 1e-9));
  }
}

TEST(EquationFit, AgreesWithGretl) {
  const Example model = fitted(growth(), 2);
  const EquationFit fit = equationFit(model.fit, model.sample(), 2);
  EXPECT_NEAR(fit.residualSumOfSquares, 3025.680, 5e-4);
  EXPECT_NEAR(fit.standardError, 3.959432, 5e-7);
  EXPECT_NEAR(fit.rSquare, 0.295536, 5e-7);
  EXPECT_NEAR(fit.adjustedRSquare, 0.273636, 5e-7);
  EXPECT_NEAR(fit.overall->statistic, 13.49455, 5e-6);
  EXPECT_NEAR(fit.overall->pValue, 9.17e-13, 5e-16);
  const CoefficientInference constant = studentInference(model.fit, 2, 95);
  EXPECT_NEAR(constant.standardErrors[0], 0.586274, 5e-7);
  EXPECT_NEAR(constant.pValues[0], 6.66e-05, 5e-8);
  EXPECT_NEAR(constant.upperLimits[0], -2.39025 + 1.972332 * 0.586274, 2e-5);  // t(193) at 97.5 %
  // AIC = (-2 logL + 2 m K) / n = 8.21531 by gretl.
  EXPECT_NEAR((-2 * logLikelihood(model.fit, logDeterminant(model.fit, residualCovariance(model.fit))) + 2 * 21) / 200,
              8.21531, 5e-6);
}

TEST(EquationFit, WithoutConstantSpeaksOfDeviationsFromZero) {
  // y = 0.5 y(-1) + e on 2, 1, 1, 0: b = 3 / 6, fitted 1, .5, .5 with the squares 1.5; residuals 0, .5, -.5.
  const Example model = fitted({{2, 1, 1, 0}}, 1, false);
  const EquationFit fit = equationFit(model.fit, model.sample(), 0);
  EXPECT_NEAR(fit.rSquare, 0.75, kRounding);
  EXPECT_NEAR(fit.adjustedRSquare, 1 - 0.25 * 3 / 2, kRounding);
  EXPECT_NEAR(fit.overall->statistic, 1.5 / (0.5 / 2), 1e-13);
}

}  // namespace
}  // namespace engine
