#include "procedures/varmodel/algo/results_summary.h"

#include <gtest/gtest.h>

#include "tests/algo/engine_run.h"

namespace varmodel {
namespace {

// A different number in every field; the second equation is decided the other way, and holds fewer autocorrelations and
// no correlations.
EquationResult firstEquation() {
  EquationResult result;
  result.equationName = "gdp";
  result.descN = 203;
  result.descMean = 7221.171;
  result.descStdDev = 3214.957;
  result.descMinimum = -2710.349;
  result.descMaximum = 13415.266;
  result.residualVariance = 1.005;
  result.residualSSR = 2.06;
  result.rSquare = 0.99875;
  result.adjustedRSquare = 0.98765;
  result.jarqueBeraStat = 3.141;
  result.jarqueBeraPValue = 0.05;
  result.meanSquaredError = 4.5;
  result.rootMeanSquaredError = 5.5;
  result.meanAbsoluteError = 6.5;
  result.meanAbsPercentError = 7.5;
  result.ljungBoxStat = 8.5;
  result.ljungBoxPValue = 0.05;
  result.residualACF = {0.1, -0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8, 0.9, 0.11, 0.12, 0.13};
  result.residualCorrelation = {{1, 0.5}};
  result.residualEigenvalues = {1.5, 0.5};
  result.coefficients = {{0.5, -2, 3, 4, 5, 6, 7}};
  result.standardErrors = {{0.25, 1, 1.5, 1.25, 1.125, 2, 3}};
  result.tStatistics = {{2, -2, 3, 4, 5, 1.0625, 7}};
  result.pValues = {{0.05, 0.04999, 0.01, 0.00999, 0.001, 0.000999, 1}};
  return result;
}

EquationResult secondEquation() {
  EquationResult result = firstEquation();
  result.equationName = "consumption_of_households";
  result.jarqueBeraPValue = result.ljungBoxPValue = 0.0499;
  result.residualACF.resize(3);
  result.residualCorrelation.clear();
  result.coefficients = {{-1234.5678907}};
  return result;
}

const std::string kFrame = std::string(120, '=') + '\n';
const std::string kRule = std::string(100, '-') + '\n';
const std::string kSummary =
    kFrame + "VAR MODEL RESULTS SUMMARY\n" + kFrame + "\n[1] LAG ORDER SELECTION\n" + kRule +
    R"(     Lag      Log-Likelihood               AIC               BIC              HQIC
)" + kRule +
    R"(       1           -100.5000            1.2500            1.5000            1.7500
      12                -inf            2.0000            3.0000            4.0000
)" + kRule +
    R"(Selected Lags: AIC=1, BIC=12, HQIC=2 | Overall=3

[2] DESCRIPTIVE STATISTICS
)" + kRule +
    R"(          Variable         N          Mean       Std Dev       Minimum       Maximum
               gdp       203       7221.17       3214.96      -2710.35      13415.27
consumption_of_households       203       7221.17       3214.96      -2710.35      13415.27
)" + kRule +
    "\n[3] MODEL FIT SUMMARY (All Equations)\n" + std::string(120, '-') + R"(
          Equation  Res.Variance         RSS         R²     Adj.R²       JB Stat    JB p-val   Normality
               gdp          1.00         2.1      0.9988      0.9877          3.14      0.0500          OK
consumption_of_households          1.00         2.1      0.9988      0.9877          3.14      0.0499      Reject
)" + std::string(120, '-') +
    "\n\n[4] ERROR METRICS (All Equations)\n" + std::string(110, '-') + R"(
          Equation           MSE          RMSE           MAE       MAPE(%)       LB Stat    LB p-val    AutoCorr
               gdp          4.50          5.50          6.50          7.50          8.50      0.0500          No
consumption_of_households          4.50          5.50          6.50          7.50          8.50      0.0499         Yes
)" + std::string(110, '-') +
    R"(
Note: LB=Ljung-Box test, AutoCorr=Autocorrelation detected

[5] AUTOCORRELATION OF RESIDUALS (ACF)
)" + kRule +
    R"(          Equation     Lag 1     Lag 2     Lag 3     Lag 4     Lag 5     Lag 6     Lag 7     Lag 8     Lag 9    Lag 10
               gdp    0.1000   -0.2000    0.3000    0.4000    0.5000    0.6000    0.7000    0.8000    0.9000    0.1100
consumption_of_households    0.1000   -0.2000    0.3000         -         -         -         -         -         -         -
)" + kRule +
    R"(Note: Values close to 0 indicate no autocorrelation. |ACF| > 0.2 may indicate significant autocorrelation.

[6] CORRELATION MATRIX OF RESIDUALS
)" + kRule +
    R"(                               gdpconsumption_of_households
               gdp          1.0000          0.5000
consumption_of_households               -               -
)" + kRule +
    R"(Note: Values range from -1 to 1. Values close to ±1 indicate strong correlation.

[7] EIGENVALUES OF RESIDUAL CORRELATION MATRIX
)" + kRule +
    R"(   Eigenvalue #           Value
            λ1        1.500000
            λ2        0.500000
)" + kRule +
    R"(Note: Eigenvalues indicate the variance explained by each principal component.

[8] COEFFICIENTS: gdp
)" + kRule +
    R"(   Parameter     Coefficient     Std.Error     t-ratio     p-value   Sig
     beta[0]        0.500000      0.250000       2.000      0.0500      
     beta[1]       -2.000000      1.000000      -2.000      0.0500     *
     beta[2]        3.000000      1.500000       3.000      0.0100     *
     beta[3]        4.000000      1.250000       4.000      0.0100    **
     beta[4]        5.000000      1.125000       5.000      0.0010    **
     beta[5]        6.000000      2.000000       1.062      0.0010   ***
     beta[6]        7.000000      3.000000       7.000      1.0000      

[9] COEFFICIENTS: consumption_of_households
)" + kRule +
    R"(   Parameter     Coefficient     Std.Error     t-ratio     p-value   Sig
     beta[0]    -1234.567891      0.250000       2.000      0.0500      
Significance: *** p<0.001, ** p<0.01, * p<0.05
)" + kFrame +
    "END OF VAR MODEL RESULTS\n" + kFrame;

TEST(ResultsSummary, IsOneText) {
  EngineRun run({}, 1, 1);
  const auto summary = [&] {
    std::ostringstream out;
    writeResultsSummary(run.algo, out);
    EXPECT_EQ(out.flags(), std::ostringstream().flags());  // the stream's own format stays
    return out.str();
  };
  EXPECT_EQ(summary(), "No results to display.\n");
  run.algo.lagOrders = {1, 12};
  run.algo.logLikelihoods = {-100.5, -std::numeric_limits<double>::infinity()};
  run.algo.aicValues = {1.25, 2};
  run.algo.bicValues = {1.5, 3};
  run.algo.hqicValues = {1.75, 4};
  run.algo.aicLag = 1;
  run.algo.bicLag = 12;
  run.algo.hqicLag = 2;
  run.algo.optimalLag = 3;
  run.results = {firstEquation(), secondEquation()};
  EXPECT_EQ(summary(), kSummary);
}

}  // namespace
}  // namespace varmodel
