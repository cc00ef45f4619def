#include "algo/results_summary.h"

#include <gtest/gtest.h>

#include <iomanip>

#include "tests/algo/engine_run.h"
#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

using ::testing::HasSubstr;

std::string summaryOf(const EngineRun& run) {
  std::ostringstream out;
  writeResultsSummary(run.algo, out);
  return out.str();
}

// The lines of one section, from its heading to the last before the next blank line.
std::string section(const std::string& summary, const std::string& heading) {
  const std::size_t begin = summary.find(heading);
  if (begin == std::string::npos) return "no section " + heading;
  return summary.substr(begin, summary.find("\n\n", begin) + 1 - begin);
}

std::string rule(std::size_t length) {
  return std::string(length, '-') + "\n";
}

EngineRun& fill(EngineRun& run) {
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
  return run;
}

TEST(ResultsSummary, WithoutResultsSaysSo) {
  const EngineRun run;
  EXPECT_EQ(summaryOf(run), "No results to display.\n");
}

TEST(ResultsSummary, FrameAndOrder) {
  EngineRun run;
  const std::string summary = summaryOf(fill(run));
  const std::string frame = std::string(120, '=') + "\n";
  EXPECT_THAT(summary,
              ::testing::StartsWith(frame + "VAR MODEL RESULTS SUMMARY\n" + frame + "\n[1] LAG ORDER SELECTION\n"));
  EXPECT_THAT(summary, ::testing::EndsWith("Significance: *** p<0.001, ** p<0.01, * p<0.05\n" + frame +
                                           "END OF VAR MODEL RESULTS\n" + frame));
  std::size_t position = 0;
  for (const char* heading :
       {"\n[1] LAG ORDER SELECTION\n", "\n[2] DESCRIPTIVE STATISTICS\n", "\n[3] MODEL FIT SUMMARY (All Equations)\n",
        "\n[4] ERROR METRICS (All Equations)\n", "\n[5] AUTOCORRELATION OF RESIDUALS (ACF)\n",
        "\n[6] CORRELATION MATRIX OF RESIDUALS\n", "\n[7] EIGENVALUES OF RESIDUAL CORRELATION MATRIX\n",
        "\n[8] COEFFICIENTS: gdp\n", "\n[9] COEFFICIENTS: consumption_of_households\n"}) {
    const std::size_t found = summary.find(heading, position);
    ASSERT_NE(found, std::string::npos) << heading;
    position = found;
  }
}

TEST(ResultsSummary, LagSelectionSection) {
  EngineRun run;
  EXPECT_EQ(section(summaryOf(fill(run)), "[1]"),
            "[1] LAG ORDER SELECTION\n" + rule(100) +
                "     Lag      Log-Likelihood               AIC               BIC              HQIC\n" + rule(100) +
                "       1           -100.5000            1.2500            1.5000            1.7500\n"
                "      12                -inf            2.0000            3.0000            4.0000\n" +
                rule(100) + "Selected Lags: AIC=1, BIC=12, HQIC=1 | Overall=1\n");
}

TEST(ResultsSummary, AutocorrelationSectionShowsAtMostTenLags) {
  EngineRun run;
  EXPECT_EQ(
      section(summaryOf(fill(run)), "[5]"),
      "[5] AUTOCORRELATION OF RESIDUALS (ACF)\n" + rule(100) +
          "          Equation     Lag 1     Lag 2     Lag 3     Lag 4     Lag 5     Lag 6     Lag 7     Lag 8     Lag 9"
          "    Lag 10\n"
          "               gdp    0.1000   -0.2000    0.3000    0.4000    0.5000    0.6000    0.7000    0.8000    0.9000"
          "    0.1100\n"
          "consumption_of_households    0.1000   -0.2000    0.3000         -         -         -         -         -"
          "         -         -\n" +
          rule(100) +
          "Note: Values close to 0 indicate no autocorrelation. |ACF| > 0.2 may indicate significant "
          "autocorrelation.\n");
}

TEST(ResultsSummary, CorrelationsEigenvaluesAndCoefficients) {
  EngineRun run;
  const std::string summary = summaryOf(fill(run));
  EXPECT_THAT(section(summary, "[6]"), HasSubstr("               gdp          1.0000          0.5000\n"
                                                 "consumption_of_households               -               -\n"));
  EXPECT_THAT(section(summary, "[7]"), HasSubstr("            λ1        1.500000\n            λ2        0.500000\n"));
  EXPECT_THAT(section(summary, "[8]"),
              HasSubstr("   Parameter     Coefficient     Std.Error     t-ratio     p-value   Sig\n"
                        "     beta[0]        0.500000      0.250000       2.000      0.0500      \n"
                        "     beta[1]       -2.000000      1.000000      -2.000      0.0123     *\n"
                        "     beta[2]        3.000000      1.000000       3.000      0.0090    **\n"
                        "     beta[3]        4.000000      1.000000       4.000      0.0005   ***\n"));
}

TEST(ResultsSummary, DecisionsTurnStrictlyBelowFivePercent) {
  EngineRun run;
  const std::string summary = summaryOf(fill(run));
  EXPECT_THAT(section(summary, "[2]"), HasSubstr("               gdp       203       7221.17          0.00"));
  EXPECT_THAT(section(summary, "[3]"), HasSubstr("      0.0500          OK\n"));
  EXPECT_THAT(section(summary, "[3]"), HasSubstr("      0.0499      Reject\n"));
  EXPECT_THAT(section(summary, "[4]"), HasSubstr("      0.0500          No\n"));
  EXPECT_THAT(section(summary, "[4]"), HasSubstr("      0.0499         Yes\n"));
}

TEST(ResultsSummary, LeavesTheStreamsFormatAlone) {
  EngineRun run;
  std::ostringstream out;
  out << std::scientific << std::setprecision(3);
  writeResultsSummary(fill(run).algo, out);
  out.str("");
  out << 1.0;
  EXPECT_EQ(out.str(), "1.000e+00");
}

}  // namespace
}  // namespace varmodel
