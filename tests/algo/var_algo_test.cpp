#include "algo/var_algo.h"

#include <gtest/gtest.h>

#include "tests/algo/engine_run.h"
#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

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

SeriesList noiseSeries(std::size_t count, std::size_t length) {
  SeriesList result;
  for (std::size_t i = 0; i < count; ++i) result.push_back(noise(100 + i, length));
  return result;
}

TEST(VarAlgo, OneLagIsFittedAndChosen) {
  EngineRun run(noiseSeries(2, 40), 3, 3);
  ASSERT_EQ(run.start(), 0);
  EXPECT_THAT(run.messages(), IsEmpty());
  EXPECT_THAT(run.algo.lagOrders, ElementsAre(3));
  EXPECT_EQ(run.algo.aicLag, 3);
  EXPECT_EQ(run.algo.bicLag, 3);
  EXPECT_EQ(run.algo.hqicLag, 3);
  EXPECT_EQ(run.algo.optimalLag, 3);
  const EquationResult& result = run.results.at(1);
  EXPECT_EQ(result.equationName, "y2");
  EXPECT_THAT(result.coefficients, ElementsAre(SizeIs(7)));
  EXPECT_THAT(result.fittedValues, ElementsAre(SizeIs(37)));
  EXPECT_EQ(result.confidenceLevel, 95.0);
  for (std::size_t r = 0; r < 37; ++r) {
    EXPECT_NEAR(result.fittedValues[0][r] + result.residuals[0][r], run.settings.endogenousSeries[1][r + 3], kRounding);
  }
  EXPECT_EQ(run.trace,
            "VARAlgo::start - Beginning algorithm execution\n"
            "VARAlgo::computeDescriptiveStats - Computing descriptive statistics\n"
            "VARAlgo::computeDescriptiveStats - Computed statistics for 2 variables\n");
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
  EXPECT_THAT(run.results[0].fittedValues, ElementsAre(SizeIs(57)));
  EXPECT_EQ(run.results[0].residuals[0], run.algo.residualsByLag.at(1)[0]);
  EXPECT_NE(run.results[0].residuals[0], run.algo.residualsByLag.at(3)[0]);
  // The VAR(1) is fitted on the rows of MAXLAG, so that the actual values of lag 1 are two more than its residuals.
  EXPECT_THAT(run.algo.residualsByLag.at(1), Each(SizeIs(57)));
  EXPECT_EQ(run.results[0].meanSquaredError, 0.0);
  EXPECT_GT(run.results[0].rSquare, 0.0);
  const std::vector<double>& b = run.algo.coefficientsByLag.at(1)[0];
  const SeriesList& y = run.settings.endogenousSeries;
  EXPECT_NEAR(run.results[0].forecasts.at(0), b[0] + b[1] * y[0].back() + b[2] * y[1].back(), kRounding);
  EXPECT_THAT(run.trace, HasSubstr("\nWarning: VARAlgo::estimateVARWithLags - The selected lag 1 is below MAXLAG 3: "));
}

TEST(VarAlgo, FewObservations) {
  // T = 20, MAXLAG = 4, K = 2: n = 16, and k = 9 + m. At n - k = 1 the two residual series are proportional.
  const std::vector<std::pair<std::size_t, std::vector<std::string>>> cases = {
      {5, {}}, {6, {"error: Covariance matrix is singular"}}, {7, {kInsufficient}}, {8, {kInsufficient}}};
  for (const auto& [exogenous, messages] : cases) {
    EngineRun run(noiseSeries(2, 20), 4, 4);
    for (std::size_t j = 0; j < exogenous; ++j) run.settings.exogenousSeries.push_back(noise(500 + j, 20));
    EXPECT_EQ(run.start(), messages.empty() ? 0 : 1);
    EXPECT_EQ(run.messages(), messages);
  }
  for (const std::size_t length : {0u, 2u}) {  // fewer rows than MAXLAG
    EngineRun run(noiseSeries(2, length), 1, 5);
    EXPECT_EQ(run.start(), 1);
    EXPECT_THAT(run.messages(), ElementsAre(kInsufficient));
    EXPECT_EQ(run.results.at(0).descN, length);
  }
}

TEST(VarAlgo, CollinearRegressorsAreRefused) {
  const SeriesList y = noiseSeries(2, 50);
  SeriesList constant = y;
  constant[1].assign(50, 3.7);
  SeriesList total = y;
  total.emplace_back();
  for (std::size_t t = 0; t < 50; ++t) total[2].push_back(y[0][t] + y[1][t]);
  for (const SeriesList& series : {constant, total}) {
    EngineRun run(series, 2, 2);
    EXPECT_EQ(run.predict(3).start(), 1);
    EXPECT_THAT(run.messages(), ElementsAre(kSingularRegressors));
    EXPECT_THAT(run.results.at(0).coefficients, IsEmpty());
    EXPECT_THAT(run.results.at(0).forecasts, IsEmpty());
    EXPECT_EQ(run.results.at(0).descN, 50u);  // described all the same
  }
}

TEST(VarAlgo, NearlyCollinearRegressorsGetAWarningLine) {
  SeriesList exogenous = {noise(1, 50), noise(1, 50)};
  const std::vector<double> nudge = noise(2, 50);
  for (std::size_t t = 0; t < 50; ++t) exogenous[1][t] += 1e-6 * nudge[t];
  for (const bool near : {true, false}) {
    EngineRun run(noiseSeries(2, 50), 1, 1);
    run.settings.exogenousSeries = near ? exogenous : SeriesList{exogenous[0]};
    EXPECT_EQ(run.start(), 0);
    const auto warning = HasSubstr("Warning: VARAlgo::estimateForLag - ");
    if (near) {
      EXPECT_THAT(run.trace, warning);
    } else {
      EXPECT_THAT(run.trace, Not(warning));
    }
  }
}

TEST(VarAlgo, UnevenSeriesFailWithoutAMessage) {
  EngineRun run(noiseSeries(2, 50), 1, 1);
  run.settings.exogenousSeries = {noise(1, 49)};
  EXPECT_EQ(run.start(), 1);
  EXPECT_THAT(run.messages(), IsEmpty());
}

TEST(VarAlgo, NothingToFit) {
  EngineRun crossed(noiseSeries(2, 50), 3, 2);
  EXPECT_EQ(crossed.start(), 1);
  EXPECT_THAT(crossed.trace, HasSubstr("VARAlgo::start - EXCEPTION: Input vectors must not be empty.\n"));
  EngineRun empty({}, 1, 1);
  EXPECT_EQ(empty.start(), 1);
  EXPECT_THAT(empty.trace, HasSubstr("VARAlgo::estimateVARWithLags - ERROR: No endogenous data available\n"));
  EXPECT_THAT(empty.trace, HasSubstr("VARAlgo::computeDescriptiveStats - ERROR: No endogenous data\n"));
}

struct ForecastCase {
  const char* what;
  bool tauto;
  bool predict;
  std::size_t horizon;
  std::size_t warnings;
  std::size_t forecasts;
};

TEST(VarAlgo, ForecastRequests) {
  const std::vector<ForecastCase> cases = {
      {"not requested", false, false, 0, 0, 0},
      {"not requested, autocorrelation test", true, false, 0, 1, 0},
      {"labels without a request", false, false, 4, 0, 0},
      {"requested", true, true, 4, 0, 4},
      {"requested with nothing to forecast", true, true, 0, 1, 0},
  };
  for (const ForecastCase& one : cases) {
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

TEST(VarAlgo, ForecastsNeedTheModelOfTheSelectedLag) {
  EngineRun run(noiseSeries(2, 50), 2, 2);
  SeriesList output;
  EXPECT_FALSE(run.algo.computeForecasts(3, output));  // before any estimation
  ASSERT_EQ(run.start(), 0);
  EXPECT_FALSE(run.algo.computeForecasts(0, output));
  EXPECT_TRUE(run.algo.computeForecasts(3, output));
  EXPECT_THAT(output, ElementsAre(run.results[0].forecasts, run.results[1].forecasts));
  run.algo.coefficientsByLag.clear();
  EXPECT_FALSE(run.algo.computeForecasts(3, output));
}

TEST(VarAlgo, ExogenousTermsAreLeftOutOfForecastsAndThatIsSaid) {
  EngineRun run(noiseSeries(2, 50), 1, 1);
  run.settings.exogenousSeries = {noise(7, 50)};
  ASSERT_EQ(run.predict(1).start(), 0);
  const std::vector<double>& b = run.results[0].coefficients[0];
  const SeriesList& y = run.settings.endogenousSeries;
  EXPECT_NEAR(run.results[0].forecasts.at(0), b[0] + b[1] * y[0].back() + b[2] * y[1].back(), kRounding);
  EXPECT_THAT(run.trace, HasSubstr("\nWarning: VARAlgo::computeForecasts - "));
}

TEST(VarAlgo, DiagnosticsAreComputedOnRequestOnly) {
  EngineRun bare(noiseSeries(2, 50), 2, 2);
  ASSERT_EQ(bare.start(), 0);
  const EquationResult& none = bare.results[0];
  EXPECT_GT(none.residualSSR, 0.0);
  EXPECT_EQ(none.rSquare, 0.0);
  EXPECT_EQ(none.meanAbsoluteError, 0.0);
  EXPECT_EQ(none.jarqueBeraStat, 0.0);
  EXPECT_EQ(none.ljungBoxPValue, 1.0);
  EXPECT_THAT(none.residualACF, IsEmpty());
  EXPECT_THAT(none.seriesACF, IsEmpty());
  EXPECT_THAT(none.residualCorrelation, IsEmpty());

  EngineRun full(noiseSeries(2, 50), 2, 2);
  full.settings.showMae = full.settings.plotAcf = full.settings.showCorrMatrix = full.settings.showEigen = true;
  ASSERT_EQ(full.start(), 0);
  const EquationResult& some = full.results[0];
  EXPECT_GT(some.meanAbsoluteError, 0.0);
  EXPECT_EQ(some.meanSquaredError, 0.0);
  EXPECT_THAT(some.seriesACF, SizeIs(2));
  EXPECT_THAT(some.residualCorrelation, SizeIs(2));
  ASSERT_THAT(some.residualEigenvalues, SizeIs(2));
  EXPECT_NEAR(some.residualEigenvalues[0] + some.residualEigenvalues[1], 2.0, kRounding);
}

TEST(VarAlgo, ResidualAutocorrelationsServeFourRequests) {
  for (bool VARInputSettings::*flag :
       {&VARInputSettings::showResidAcf, &VARInputSettings::plotResAcf, &VARInputSettings::showTestAutocorrelation,
        &VARInputSettings::showTestNormality}) {
    EngineRun run(noiseSeries(2, 50), 3, 3);
    run.settings.*flag = true;
    ASSERT_EQ(run.start(), 0);
    EXPECT_THAT(run.results[1].residualACF, SizeIs(3));
    EXPECT_THAT(run.results[1].residualACFStdErr, SizeIs(3));
  }
}

struct LjungBoxCase {
  const char* unit;
  std::int32_t lag;
  std::size_t length;
  std::int32_t degreesOfFreedom;
};

TEST(VarAlgo, LjungBoxDegreesOfFreedom) {
  const std::vector<LjungBoxCase> cases = {
      {"MONTH", 2, 50, 10}, {"YEAR", 3, 50, 1}, {"OBS", 3, 50, 1}, {"MONTH", 1, 13, 0},  // 12 residuals: no test
  };
  for (const LjungBoxCase& one : cases) {
    SCOPED_TRACE(one.unit);
    EngineRun run(noiseSeries(2, one.length), one.lag, one.lag);
    run.settings.showTestAutocorrelation = true;
    run.settings.timeAxis.timeUnitNames = {one.unit};
    ASSERT_EQ(run.start(), 0);
    EXPECT_EQ(run.results[0].ljungBoxDF, one.degreesOfFreedom);
    EXPECT_EQ(run.results[0].ljungBoxStat > 0.0, one.degreesOfFreedom > 0);
    EXPECT_EQ(run.results[0].ljungBoxPValue<1.0, one.degreesOfFreedom> 0);
  }
}

}  // namespace
}  // namespace varmodel
