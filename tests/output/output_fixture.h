// A generator over settings and results that are written down by hand: two variables, y and x, 5 rows, MAXLAG 2 (3 rows
// of estimation sample), selected lag 1, two forecast periods.

#pragma once

#include "procedures/varmodel/output/var_output_gen.h"
#include "tests/document/document_fixture.h"

namespace varmodel {

using Texts = std::vector<std::string>;

class OutputFixture : public SessionTest {
 protected:
  OutputFixture() {
    settings.endogenousNames = {"y", "x"};
    settings.endogenousSeries = {{1, 2, 3, 4, 5}, {10, 20, 30, 40, 50}};
    settings.maxLag = 2;
    settings.timeAxis.historicalLabels = {"Q1", "Q2", "Q3", "Q4", "Q5"};
    settings.timeAxis.forecastLabels = {{"Q6", 5}, {"Q7", 6}};
    results = {result("y", 1.0), result("x", 100.0)};
    results[0].residualCorrelation = results[1].residualCorrelation = {{1, 0.5}, {0.5, 1}};
    results[0].residualEigenvalues = results[1].residualEigenvalues = {1.5, 0.5};
    algo.lagOrders = {1, 2};
    algo.logLikelihoods = {-10, -9};
    algo.aicValues = {1, 2};
    algo.bicValues = {3, 4};
    algo.hqicValues = {5, 6};
    algo.optimalLag = algo.bicLag = algo.hqicLag = 1;
    algo.aicLag = 2;
    algo.residualCovariance = {{4, 1}, {1, 9}};
    algo.residualCovarianceDeterminant = 35;
  }

  // Every value differs from every other one of its record.
  static EquationResult result(const std::string& name, double unit) {
    EquationResult r;
    r.equationName = name;
    const auto number = [&](int first, std::initializer_list<double*> fields) {
      for (double* field : fields) *field = first++ * unit;
    };
    double first = 1;
    for (SeriesMatrix* field :
         {&r.coefficients, &r.standardErrors, &r.tStatistics, &r.pValues, &r.lowerLimits, &r.upperLimits}) {
      *field = {{first * unit, (first + 0.1) * unit, (first + 0.2) * unit, (first + 0.3) * unit, (first + 0.4) * unit}};
      ++first;
    }
    r.fittedValues = {{3.5 * unit, 4.5 * unit, 5.5 * unit}};
    r.residuals = {{-0.5 * unit, 0.25 * unit, 0.75 * unit}};
    r.descN = 5;
    number(11, {&r.descMean, &r.descStdDev, &r.descMinimum, &r.descMaximum});
    number(21, {&r.residualSSR, &r.rSquare, &r.adjustedRSquare, &r.meanSquaredError, &r.rootMeanSquaredError,
                &r.meanAbsoluteError, &r.meanAbsPercentError});
    r.ljungBoxDF = 15;
    number(31, {&r.ljungBoxStat, &r.ljungBoxPValue, &r.jarqueBeraStat, &r.jarqueBeraPValue});
    r.residualACF = {0.41 * unit, 0.42 * unit, 0.43 * unit};
    r.seriesACF = {0.51 * unit, 0.52 * unit, 0.53 * unit};
    r.forecasts = {61 * unit, 62 * unit};
    return r;
  }

  // Runs the generator; standard output and error are kept in `out` and `trace`.
  std::int32_t run() {
    session.document.SetNull();
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const std::int32_t status = VAROutputGen(&procedure, dataSource, &settings, &algo).start();
    trace = testing::internal::GetCapturedStderr();
    out = testing::internal::GetCapturedStdout();
    return status;
  }

  const rapidjson::Value& items() { return session.document["items"]; }

  // The item of that name.
  const rapidjson::Value& item(const std::string& name) {
    for (const rapidjson::Value& candidate : items().GetArray()) {
      if (candidate["name"] == name) return candidate;
    }
    throw std::runtime_error("no item '" + name + "' in " + out);
  }

  Texts itemNames() {
    Texts names;
    for (const rapidjson::Value& candidate : items().GetArray()) names.push_back(candidate["name"].GetString());
    return names;
  }

  void requestEverything() {
    for (bool* flag : allFlags()) *flag = true;
    settings.useAic = settings.useBic = settings.useHqic = true;
  }

  std::vector<bool*> allFlags() {
    VARInputSettings& s = settings;
    return {&s.showDescriptives, &s.showGoodFit,       &s.showParameters,
            &s.showRes,          &s.showResidAcf,      &s.showMse,
            &s.showRmse,         &s.showMae,           &s.showMape,
            &s.showRSquare,      &s.showAdjRSquare,    &s.showCorrMatrix,
            &s.showEigen,        &s.plotTimeSeries,    &s.plotAcf,
            &s.showForecasts,    &s.showTestNormality, &s.showTestAutocorrelation,
            &s.plotRes,          &s.plotResComb,       &s.plotResAcf,
            &s.plotResAcfComb,   &s.plotFit,           &s.plotForecast};
  }

  CommandSpec commandSpec;
  CommandDescriptor commandDescriptor{"VARMODEL"};
  ProcedureDataSource dataSource;
  BpProcedure procedure{"Vector Autoregressive Models", 10};
  VARInputSettings settings{&commandSpec, &commandDescriptor, &dataSource};
  std::vector<EquationResult> results;
  VARAlgo algo{settings, results};
  std::string out;
  std::string trace;
};

}  // namespace varmodel
