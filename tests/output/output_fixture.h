// A generator over settings and results that are written down by hand: two variables, y and x, 5 rows, MAXLAG 2 (3 rows
// of estimation sample), selected lag 1, two forecast periods.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "output/var_output_gen.h"
#include "workbench/session/session.h"

namespace varmodel {

using Texts = std::vector<std::string>;
using Numbers = std::vector<double>;

class OutputFixture : public testing::Test {
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
    const auto parameters = [&](double first) {
      return SeriesMatrix{
          {first * unit, (first + 0.1) * unit, (first + 0.2) * unit, (first + 0.3) * unit, (first + 0.4) * unit}};
    };
    r.coefficients = parameters(1);
    r.standardErrors = parameters(2);
    r.tStatistics = parameters(3);
    r.pValues = parameters(4);
    r.lowerLimits = parameters(5);
    r.upperLimits = parameters(6);
    r.fittedValues = {{3.5 * unit, 4.5 * unit, 5.5 * unit}};
    r.residuals = {{-0.5 * unit, 0.25 * unit, 0.75 * unit}};
    r.descN = 5;
    r.descMean = 11 * unit;
    r.descStdDev = 12 * unit;
    r.descMinimum = 13 * unit;
    r.descMaximum = 14 * unit;
    r.residualSSR = 21 * unit;
    r.rSquare = 22 * unit;
    r.adjustedRSquare = 23 * unit;
    r.meanSquaredError = 24 * unit;
    r.rootMeanSquaredError = 25 * unit;
    r.meanAbsoluteError = 26 * unit;
    r.meanAbsPercentError = 27 * unit;
    r.ljungBoxStat = 31 * unit;
    r.ljungBoxDF = 15;
    r.ljungBoxPValue = 32 * unit;
    r.jarqueBeraStat = 33 * unit;
    r.jarqueBeraPValue = 34 * unit;
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
    std::int32_t status = 0;
    {
      VAROutputGen generator(&procedure, dataSource, &settings, &algo);
      status = generator.start();
    }
    trace = testing::internal::GetCapturedStderr();
    out = testing::internal::GetCapturedStdout();
    return status;
  }

  const rapidjson::Value& items() { return session.document["items"]; }

  // The item of that name; fails the test when there is none.
  const rapidjson::Value& item(const std::string& name) {
    for (const rapidjson::Value& candidate : items().GetArray()) {
      if (candidate["name"] == name) return candidate;
    }
    ADD_FAILURE() << "no item '" << name << "' in " << out;
    static const rapidjson::Value none(rapidjson::kObjectType);
    return none;
  }

  Texts itemNames() {
    Texts names;
    for (const rapidjson::Value& candidate : items().GetArray()) names.push_back(candidate["name"].GetString());
    return names;
  }

  static std::string json(const rapidjson::Value& value) {
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    value.Accept(writer);
    return text.GetString();
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

  workbench::Session session;
  workbench::SessionScope scope{session};
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
