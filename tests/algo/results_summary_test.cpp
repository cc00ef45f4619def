#include "procedures/varmodel/algo/results_summary.h"

#include <gtest/gtest.h>

#include "tests/algo/engine_run.h"
#include "tests/engine/numeric_support.h"

namespace varmodel {
namespace {

using ::testing::HasSubstr;

const std::string kFrame = std::string(120, '=') + "\n";
const std::string kRule = std::string(100, '-') + "\n";

// Two equations, the second with fewer autocorrelations and the decisions on the other side.
class ResultsSummary : public ::testing::Test {
 protected:
  ResultsSummary() {
    run.algo.lagOrders = {1, 12};
    run.algo.logLikelihoods = {-100.5, -std::numeric_limits<double>::infinity()};
    run.algo.aicValues = {1.25, 2};
    run.algo.bicValues = {1.5, 3};
    run.algo.hqicValues = {1.75, 4};
    run.algo.aicLag = run.algo.hqicLag = run.algo.optimalLag = 1;
    run.algo.bicLag = 12;
    EquationResult result;
    result.equationName = "gdp";
    result.coefficients = {{0.5, -2, 3, 4}};
    result.standardErrors = {{0.25, 1, 1, 1}};
    result.tStatistics = {{2, -2, 3, 4}};
    result.pValues = {{0.05, 0.0123, 0.009, 0.0005}};
    result.jarqueBeraPValue = result.ljungBoxPValue = 0.05;
    result.residualACF = {0.1, -0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 0.11, 0.12, 0.13};
    result.residualCorrelation = {{1, 0.5}};
    result.residualEigenvalues = {1.5, 0.5};
    result.descN = 203;
    result.descMean = 7221.171;
    run.results.push_back(result);
    result.equationName = "consumption_of_households";
    result.residualACF.resize(3);
    result.jarqueBeraPValue = result.ljungBoxPValue = 0.0499;
    run.results.push_back(result);
  }
  std::string summary() const {
    std::ostringstream out;
    writeResultsSummary(run.algo, out);
    EXPECT_EQ(out.flags(), std::ostringstream().flags());  // the stream's own format stays
    return out.str();
  }
  EngineRun run{{}, 1, 1};
};

TEST_F(ResultsSummary, FrameAndOrder) {
  EXPECT_THAT(summary(), ::testing::StartsWith(kFrame + "VAR MODEL RESULTS SUMMARY\n" + kFrame + "\n[1]"));
  EXPECT_THAT(summary(), ::testing::EndsWith("Significance: *** p<0.001, ** p<0.01, * p<0.05\n" + kFrame +
                                             "END OF VAR MODEL RESULTS\n" + kFrame));
  std::vector<std::string> headings;
  std::istringstream lines(summary());
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('[')) headings.push_back(line);
  }
  EXPECT_THAT(headings,
              ::testing::ElementsAre("[1] LAG ORDER SELECTION", "[2] DESCRIPTIVE STATISTICS",
                                     "[3] MODEL FIT SUMMARY (All Equations)", "[4] ERROR METRICS (All Equations)",
                                     "[5] AUTOCORRELATION OF RESIDUALS (ACF)", "[6] CORRELATION MATRIX OF RESIDUALS",
                                     "[7] EIGENVALUES OF RESIDUAL CORRELATION MATRIX", "[8] COEFFICIENTS: gdp",
                                     "[9] COEFFICIENTS: consumption_of_households"));
  run.results.clear();
  EXPECT_EQ(summary(), "No results to display.\n");
}

TEST_F(ResultsSummary, LagSelectionAndAutocorrelations) {
  EXPECT_THAT(summary(),
              HasSubstr("[1] LAG ORDER SELECTION\n" + kRule +
                        "     Lag      Log-Likelihood               AIC               BIC              HQIC\n" + kRule +
                        "       1           -100.5000            1.2500            1.5000            1.7500\n"
                        "      12                -inf            2.0000            3.0000            4.0000\n" +
                        kRule + "Selected Lags: AIC=1, BIC=12, HQIC=1 | Overall=1\n\n"));
  // At most ten lags.
  EXPECT_THAT(summary(), HasSubstr("          Equation     Lag 1     Lag 2"));
  EXPECT_THAT(summary(), HasSubstr("     Lag 9    Lag 10\n               gdp    0.1000   -0.2000    0.3000"));
  EXPECT_THAT(summary(),
              HasSubstr("    0.9000    0.1100\nconsumption_of_households    0.1000   -0.2000    0.3000         -"));
  EXPECT_THAT(summary(), HasSubstr("         -         -\n" + kRule +
                                   "Note: Values close to 0 indicate no autocorrelation. "
                                   "|ACF| > 0.2 may indicate significant autocorrelation.\n"));
}

TEST_F(ResultsSummary, CorrelationsEigenvaluesAndCoefficients) {
  EXPECT_THAT(summary(), HasSubstr("               gdp          1.0000          0.5000\n"
                                   "consumption_of_households               -               -\n"));
  EXPECT_THAT(summary(), HasSubstr("            λ1        1.500000\n            λ2        0.500000\n"));
  EXPECT_THAT(summary(), HasSubstr("   Parameter     Coefficient     Std.Error     t-ratio     p-value   Sig\n"
                                   "     beta[0]        0.500000      0.250000       2.000      0.0500      \n"
                                   "     beta[1]       -2.000000      1.000000      -2.000      0.0123     *\n"
                                   "     beta[2]        3.000000      1.000000       3.000      0.0090    **\n"
                                   "     beta[3]        4.000000      1.000000       4.000      0.0005   ***\n"));
}

TEST_F(ResultsSummary, DecisionsTurnStrictlyBelowFivePercent) {
  EXPECT_THAT(summary(), HasSubstr("               gdp       203       7221.17          0.00"));
  for (const char* decision :
       {"0.0500          OK\n", "0.0499      Reject\n", "0.0500          No\n", "0.0499         Yes\n"}) {
    EXPECT_THAT(summary(), HasSubstr(decision));
  }
}

}  // namespace
}  // namespace varmodel
