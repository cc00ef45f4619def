#include "procedures/varmodel/algo/var_algo.h"

#include <gtest/gtest.h>

#include "tests/algo/engine_run.h"
#include "tests/engine/numeric_support.h"

namespace varmodel {
namespace {

using engine::kRounding;
using engine::noise;
using engine::noiseSeries;
using engine::SeriesList;

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

constexpr const char* kNoForecasts =
    "warning: The forecast table is not created because no forecasts could be calculated.";
constexpr const char* kSingularRegressors =
    "error: Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity";
constexpr const char* kInsufficient =
    "error: Insufficient observations: The number of effective observations must exceed the number of parameters";

TEST(VarAlgo, OneLagIsFittedAndChosen) {
  EngineRun run(noiseSeries(2, 40), 3, 3);
  run.settings.ciLevel = 90;
  ASSERT_EQ(run.start(), 0);
  EXPECT_THAT(run.messages(), IsEmpty());
  EXPECT_THAT(run.algo.lagOrders, ElementsAre(3));
  EXPECT_EQ(run.algo.optimalLag, 3);
  const EquationResult& result = run.results.at(1);
  EXPECT_EQ(result.equationName, "y2");
  EXPECT_EQ(result.confidenceLevel, 90);
  EXPECT_THAT(result.coefficients, ElementsAre(SizeIs(7)));
  ASSERT_THAT(result.fittedValues, ElementsAre(SizeIs(37)));
  for (std::size_t r = 0; r < 37; ++r) {
    EXPECT_NEAR(result.fittedValues[0][r] + result.residuals[0][r], run.settings.endogenousSeries[1][r + 3], kRounding);
  }
}

// Uncorrelated noise: BIC chooses lag 1 of 1..3.
TEST(VarAlgo, SmallerLagKeepsMaxlagParametersAndUsesItsOwnResiduals) {
  EngineRun run(noiseSeries(2, 60), 1, 3);
  run.settings.useBic = true;
  run.settings.showMse = run.settings.showRSquare = true;
  ASSERT_EQ(run.predict(1).start(), 0);
  ASSERT_EQ(run.algo.optimalLag, 1);
  ASSERT_EQ(run.algo.forecastLag, 1);
  EXPECT_THAT(run.results[0].coefficients, ElementsAre(SizeIs(7)));
  EXPECT_EQ(run.results[0].residuals[0], run.algo.residualsByLag.at(1)[0]);
  // The VAR(1) is fitted on the rows of MAXLAG, so that the actual values of lag 1 are two more than its residuals.
  EXPECT_THAT(run.algo.residualsByLag.at(1), Each(SizeIs(57)));
  EXPECT_EQ(run.results[0].meanSquaredError, 0.0);
  EXPECT_GT(run.results[0].rSquare, 0.0);
  const std::vector<double>& b = run.algo.coefficientsByLag.at(1)[0];
  const SeriesList& y = run.settings.endogenousSeries;
  EXPECT_NEAR(run.results[0].forecasts.at(0), b[0] + b[1] * y[0].back() + b[2] * y[1].back(), kRounding);
  EXPECT_THAT(run.trace, HasSubstr("\nWarning: VARAlgo::estimateVARWithLags - The selected lag 1 is below MAXLAG 3: "));
}

TEST(VarAlgo, ObservationsMustOutnumberRegressors) {
  // T = 20, MAXLAG = 4, K = 2: n = 16, and k = 9 + m. At n - k = 1 the two residual series are proportional.
  const std::vector<std::pair<std::size_t, std::vector<std::string>>> cases = {
      {5, {}}, {6, {"error: Covariance matrix is singular"}}, {7, {kInsufficient}}, {8, {kInsufficient}}};
  for (const auto& [exogenous, messages] : cases) {
    EngineRun run(noiseSeries(2, 20), 4, 4);
    for (std::size_t j = 0; j < exogenous; ++j) run.settings.exogenousSeries.push_back(noise(500 + j, 20));
    EXPECT_EQ(run.start(), messages.empty() ? 0 : 1);
    EXPECT_EQ(run.messages(), messages);
  }
  EngineRun tooShort(noiseSeries(2, 2), 1, 5);  // fewer rows than MAXLAG
  EXPECT_EQ(tooShort.start(), 1);
  EXPECT_THAT(tooShort.messages(), ElementsAre(kInsufficient));
}

TEST(VarAlgo, CollinearRegressorsAreRefused) {
  const SeriesList y = noiseSeries(2, 50);
  SeriesList constant = y;
  constant[1].assign(50, 3.7);
  SeriesList total = y;
  total.push_back(y[0]);
  for (std::size_t t = 0; t < 50; ++t) total[2][t] += y[1][t];
  for (const SeriesList& series : {constant, total, SeriesList{y[0], y[0]}}) {
    EngineRun run(series, 2, 2);
    EXPECT_EQ(run.predict(3).start(), 1);
    EXPECT_THAT(run.messages(), ElementsAre(kSingularRegressors));
    EXPECT_THAT(run.results.at(0).coefficients, IsEmpty());
    EXPECT_THAT(run.results.at(0).forecasts, IsEmpty());
    EXPECT_EQ(run.results.at(0).descN, 50u);  // described all the same
  }
}

// Twelve digits of the cross-products are lost here, and none of the coefficients: there is nothing to warn of.
TEST(VarAlgo, NearlyCollinearRegressorsAreFitted) {
  EngineRun run(noiseSeries(2, 50), 1, 1);
  run.settings.exogenousSeries = {noise(1, 50), noise(2, 50)};
  for (std::size_t t = 0; t < 50; ++t) {
    run.settings.exogenousSeries[1][t] = run.settings.exogenousSeries[0][t] + 1e-6 * run.settings.exogenousSeries[1][t];
  }
  EXPECT_EQ(run.predict(1).start(), 0);
  EXPECT_THAT(run.trace, HasSubstr("Warning: VARAlgo::computeForecasts - "));  // exogenous terms
  EXPECT_THAT(run.trace, Not(HasSubstr("Warning: VARAlgo::estimateForLag - ")));
}

TEST(VarAlgo, ResultsBeyondTheRangeOfNumbersAreNoSuccess) {
  for (const double unit : {1e160, 1e300}) {
    EngineRun run(noiseSeries(2, 50), 1, 1);
    for (double& value : run.settings.endogenousSeries[1]) value *= unit;
    EXPECT_EQ(run.start(), 1);
    EXPECT_THAT(run.messages(), ElementsAre("error: The model cannot be computed: some values are too large or too "
                                            "small. Rescale the series that hold them."));
  }
}

TEST(VarAlgo, WhatCannotBeFittedFailsWithoutAMessage) {
  const std::pair<SeriesList, SeriesList> uneven[] = {
      {noiseSeries(2, 50), {noise(1, 49)}}, {{noise(1, 50), noise(2, 49)}, {}}, {{}, {}}};
  for (const auto& [endogenous, exogenous] : uneven) {
    EngineRun run(endogenous, 1, 1);
    run.settings.exogenousSeries = exogenous;
    EXPECT_EQ(run.start(), 1);
    EXPECT_THAT(run.messages(), IsEmpty());
  }
  EngineRun crossed(noiseSeries(2, 50), 3, 2);
  EXPECT_EQ(crossed.start(), 1);
  EXPECT_THAT(crossed.trace, HasSubstr("VARAlgo::start - EXCEPTION: Input vectors must not be empty.\n"));
}

TEST(VarAlgo, ForecastsNeedARequestAndAHorizonAndTheirLackIsToldOnce) {
  const struct {
    const char* what;
    bool tauto;
    bool predict;
    std::size_t horizon;
    std::size_t warnings;
    std::size_t forecasts;
  } cases[] = {
      {"not requested", false, false, 0, 0, 0},
      {"not requested, autocorrelation test", true, false, 0, 1, 0},
      {"labels without a request", false, false, 4, 0, 0},
      {"requested", true, true, 4, 0, 4},
      {"requested with nothing to forecast", true, true, 0, 1, 0},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.what);
    EngineRun run(noiseSeries(2, 50), 2, 2);
    run.settings.showTestAutocorrelation = one.tauto;
    run.predict(one.horizon).settings.timeAxis.predictRequested = one.predict;
    EXPECT_EQ(run.start(), 0);
    EXPECT_THAT(run.messages(), SizeIs(one.warnings));
    EXPECT_THAT(run.messages(), Each(kNoForecasts));
    EXPECT_THAT(run.results[1].forecasts, SizeIs(one.forecasts));
  }
}

TEST(VarAlgo, DiagnosticsAreComputedOnRequestOnly) {
  EngineRun bare(noiseSeries(2, 50), 2, 2);
  ASSERT_EQ(bare.start(), 0);
  const EquationResult& none = bare.results[0];
  EXPECT_GT(none.residualSSR, 0.0);
  EXPECT_THAT((std::vector{none.rSquare, none.meanAbsoluteError, none.jarqueBeraStat, none.ljungBoxStat}), Each(0.0));
  EXPECT_THAT((std::vector{none.residualACF, none.seriesACF, none.residualEigenvalues}), Each(IsEmpty()));

  EngineRun full(noiseSeries(2, 50), 2, 2);
  full.settings.showMae = full.settings.plotAcf = full.settings.showCorrMatrix = full.settings.showEigen = true;
  ASSERT_EQ(full.start(), 0);
  const EquationResult& some = full.results[0];
  EXPECT_GT(some.meanAbsoluteError, 0.0);
  EXPECT_EQ(some.meanSquaredError, 0.0);
  EXPECT_THAT(some.seriesACF, SizeIs(2));
  ASSERT_THAT(some.residualEigenvalues, SizeIs(2));
  EXPECT_NEAR(some.residualEigenvalues[0] + some.residualEigenvalues[1], 2.0, kRounding);
}

TEST(VarAlgo, ResidualAutocorrelationsServeFourRequests) {
  using Settings = VARInputSettings;
  for (bool Settings::*flag : {&Settings::showResidAcf, &Settings::plotResAcf, &Settings::showTestAutocorrelation,
                               &Settings::showTestNormality}) {
    EngineRun run(noiseSeries(2, 50), 3, 3);
    run.settings.*flag = true;
    ASSERT_EQ(run.start(), 0);
    EXPECT_THAT(run.results[1].residualACF, SizeIs(3));
    EXPECT_THAT(run.results[1].residualACFStdErr, SizeIs(3));
  }
}

TEST(VarAlgo, LjungBoxDegreesOfFreedomFollowTheTimeUnitAndLag) {
  const struct {
    const char* unit;
    std::int32_t lag;
    std::size_t length;
    std::int32_t degreesOfFreedom;
  } cases[] = {
      {"MONTH", 2, 50, 10}, {"YEAR", 3, 50, 1}, {"OBS", 3, 50, 1}, {"MONTH", 1, 13, 0},  // 12 residuals: no test
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.unit);
    EngineRun run(noiseSeries(2, one.length), one.lag, one.lag);
    run.settings.showTestAutocorrelation = true;
    run.settings.timeAxis.timeUnitNames = {one.unit};
    ASSERT_EQ(run.start(), 0);
    const EquationResult& result = run.results[0];
    EXPECT_EQ(result.ljungBoxDF, one.degreesOfFreedom);
    EXPECT_EQ(result.ljungBoxStat > 0.0 && result.ljungBoxPValue<1.0, one.degreesOfFreedom> 0);
  }
}

}  // namespace
}  // namespace varmodel
