// The engine against independently computed numbers (tests/data/reference) and against published ones.

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

#include <fstream>

#include "tests/algo/engine_run.h"
#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

// Coefficients and what is made of them divide by a near-singular X'X: the levels' condition is about 1e5, its square
// 1e10.
constexpr double kInferenceTolerance = 1e-6;
// Everything else is a function of residuals and data.
constexpr double kTolerance = 1e-9;

rapidjson::Document readReference(const std::string& name) {
  std::ifstream file(VARMODEL_SOURCE_DIR "/tests/data/reference/" + name + ".json");
  rapidjson::IStreamWrapper stream(file);
  rapidjson::Document document;
  document.ParseStream(stream);
  return document;
}

// All numbers of nested arrays, row by row.
void flatten(const rapidjson::Value& value, std::vector<double>& numbers) {
  if (value.IsNumber()) return numbers.push_back(value.GetDouble());
  for (const rapidjson::Value& element : value.GetArray()) flatten(element, numbers);
}

std::vector<double> flatten(const SeriesList& rows) {
  std::vector<double> numbers;
  for (const std::vector<double>& row : rows) numbers.insert(numbers.end(), row.begin(), row.end());
  return numbers;
}

double worstRelativeError(const std::vector<double>& actual, const std::vector<double>& expected) {
  double worst = 0.0;
  for (std::size_t i = 0; i < actual.size(); ++i) {
    if (actual[i] != expected[i]) worst = std::max(worst, std::abs(actual[i] - expected[i]) / std::abs(expected[i]));
    if (std::isnan(actual[i])) return actual[i];
  }
  return worst;
}

class Reference : public ::testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    document_ = readReference(GetParam());
    ASSERT_TRUE(document_.IsObject());
    const rapidjson::Value& given = document_["case"];
    VARInputSettings& settings = run_.settings;
    addSeries(given["endogenous"], settings.endogenousNames, settings.endogenousSeries);
    addSeries(given["exogenous"], settings.exogenousNames, settings.exogenousSeries);
    for (const rapidjson::Value& criterion : given["lag"].GetArray()) {
      const std::string name = criterion.GetString();
      (name == "AIC" ? settings.useAic : name == "BIC" ? settings.useBic : settings.useHqic) = true;
    }
    settings.minLag = given["minlag"].GetInt();
    settings.maxLag = given["maxlag"].GetInt();
    settings.ciLevel = given["cilevel"].GetDouble();
    settings.timeAxis.timeUnitNames = {"YEAR", "QUARTER"};
    run_.predict(given["horizon"].GetUint());
    settings.showMse = settings.showRmse = settings.showMae = settings.showMape = true;
    settings.showRSquare = settings.showAdjRSquare = true;
    settings.showCorrMatrix = settings.showTestNormality = settings.showTestAutocorrelation = true;
    ASSERT_EQ(run_.start(), 0) << run_.trace;
  }

  static void addSeries(const rapidjson::Value& names, std::vector<std::string>& list, SeriesList& series) {
    for (const rapidjson::Value& name : names.GetArray()) {
      list.push_back(name.GetString());
      series.push_back(macroSeries().at(name.GetString()));
    }
  }

  void expectClose(const char* key, const std::vector<double>& actual, double tolerance) {
    std::vector<double> expected;
    flatten(document_["expected"][key], expected);
    ASSERT_EQ(actual.size(), expected.size()) << key;
    const double worst = worstRelativeError(actual, expected);
    EXPECT_LE(worst, tolerance) << key;
    std::ostringstream text;
    text << worst;
    RecordProperty(key, text.str());
  }

  // Regressors x equations, as the references hold a field with one inner vector an equation.
  std::vector<double> byRegressor(std::vector<std::vector<double>> EquationResult::*field) const {
    std::vector<double> values;
    for (std::size_t j = 0; j < (run_.results.front().*field).front().size(); ++j) {
      for (const EquationResult& result : run_.results) values.push_back((result.*field).front()[j]);
    }
    return values;
  }

  SeriesList perEquation(std::vector<double> (*row)(const EquationResult&)) const {
    SeriesList rows;
    for (const EquationResult& result : run_.results) rows.push_back(row(result));
    return rows;
  }

  EngineRun run_;
  rapidjson::Document document_;
};

TEST_P(Reference, LagSelection) {
  const VARAlgo& algo = run_.algo;
  expectClose("lags", {algo.lagOrders.begin(), algo.lagOrders.end()}, 0.0);
  expectClose("ll", algo.logLikelihoods, kTolerance);
  expectClose("aic", algo.aicValues, kTolerance);
  expectClose("bic", algo.bicValues, kTolerance);
  expectClose("hqic", algo.hqicValues, kTolerance);
  const rapidjson::Value& expected = document_["expected"];
  EXPECT_EQ(algo.aicLag, expected["aicLag"].GetInt());
  EXPECT_EQ(algo.bicLag, expected["bicLag"].GetInt());
  EXPECT_EQ(algo.hqicLag, expected["hqicLag"].GetInt());
  EXPECT_EQ(algo.optimalLag, expected["optimal"].GetInt());
}

TEST_P(Reference, CoefficientInference) {
  expectClose("coef", byRegressor(&EquationResult::coefficients), kInferenceTolerance);
  expectClose("se", byRegressor(&EquationResult::standardErrors), kInferenceTolerance);
  expectClose("t", byRegressor(&EquationResult::tStatistics), kInferenceTolerance);
  expectClose("p", byRegressor(&EquationResult::pValues), kInferenceTolerance);
  expectClose("lo", byRegressor(&EquationResult::lowerLimits), kInferenceTolerance);
  expectClose("hi", byRegressor(&EquationResult::upperLimits), kInferenceTolerance);
}

TEST_P(Reference, ResidualsOfTheSelectedLag) {
  expectClose("cov", flatten(run_.algo.residualCovariance), kTolerance);
  expectClose("det", {run_.algo.residualCovarianceDeterminant}, kTolerance);
  expectClose("corr", flatten(run_.results.back().residualCorrelation), kTolerance);
  expectClose("fit", flatten(perEquation([](const EquationResult& r) {
                return std::vector<double>{
                    r.residualSSR,          r.rSquare,           r.adjustedRSquare,    r.meanSquaredError,
                    r.rootMeanSquaredError, r.meanAbsoluteError, r.meanAbsPercentError};
              })),
              kTolerance);
  const auto atSelectedLag = static_cast<std::size_t>(run_.algo.optimalLag - 1);
  SeriesList tests = perEquation([](const EquationResult& r) {
    return std::vector<double>{r.ljungBoxStat, static_cast<double>(r.ljungBoxDF), r.ljungBoxPValue, r.jarqueBeraStat,
                               r.jarqueBeraPValue};
  });
  for (std::size_t i = 0; i < tests.size(); ++i) tests[i].push_back(run_.results[i].residualACF.at(atSelectedLag));
  expectClose("tests", flatten(tests), kTolerance);
}

TEST_P(Reference, DescriptivesAndForecasts) {
  expectClose("desc", flatten(perEquation([](const EquationResult& r) {
                return std::vector<double>{static_cast<double>(r.descN), r.descMean, r.descStdDev, r.descMinimum,
                                           r.descMaximum};
              })),
              kTolerance);
  expectClose("forecast", flatten(perEquation([](const EquationResult& r) { return r.forecasts; })), kTolerance);
}

INSTANTIATE_TEST_SUITE_P(Cases, Reference, ::testing::Values("levels_lag2", "levels_select_1_to_8", "levels_exogenous"),
                         [](const auto& instance) { return std::string(instance.param); });

// `factor` times the first differences of the logarithms of GDP, consumption and investment.
SeriesList logDifferences(double factor) {
  SeriesList result;
  for (const char* name : {"realgdp", "realcons", "realinv"}) {
    const std::vector<double>& levels = macroSeries().at(name);
    std::vector<double> differences;
    for (std::size_t t = 1; t < levels.size(); ++t) {
      differences.push_back(factor * (std::log(levels[t]) - std::log(levels[t - 1])));
    }
    result.push_back(std::move(differences));
  }
  return result;
}

// A textbook VAR(2) in percent growth; the numbers are known to as many digits as are printed here.
TEST(PublishedModel, GrowthInPercent) {
  EngineRun run(logDifferences(100.0), 2, 2);
  ASSERT_EQ(run.start(), 0) << run.trace;
  EXPECT_NEAR(run.algo.logLikelihoods.at(0), -800.531288, 5e-7);
  EXPECT_THAT(run.results[0].coefficients[0], elementsNear({.15269723529, -.279434735873, .675015751749, .033219450794,
                                                            .008221084913, .290457628129, -.007320907532},
                                                           5e-12));
  EXPECT_EQ(run.results[0].residuals[0].size(), 200u);
  EXPECT_NEAR(run.results[0].standardErrors[0][0], .11190205, 5e-9);
  EXPECT_NEAR(run.results[1].standardErrors[0][0], .09690470, 5e-9);
  EXPECT_NEAR(run.results[2].standardErrors[0][0], .58627442, 5e-9);
}

// The bound on the determinant is absolute: as fractions instead of percent, the same data are refused.
TEST(PublishedModel, GrowthAsFractionsIsSingular) {
  EngineRun run(logDifferences(1.0), 2, 2);
  EXPECT_EQ(run.start(), 1);
  EXPECT_THAT(run.messages(), ::testing::ElementsAre("error: Covariance matrix is singular"));
}

}  // namespace
}  // namespace varmodel
