// What is produced, in which order, and how it is handed over.

#include <filesystem>
#include <fstream>

#include "tests/output/output_fixture.h"

namespace varmodel {
namespace {

class SequenceTest : public OutputFixture {};

TEST_F(SequenceTest, EverythingInOrder) {
  requestEverything();
  ASSERT_EQ(run(), 0);
  EXPECT_THAT(itemNames(), testing::ElementsAreArray({"Descriptive Statistics",
                                                      "VAR Model Parameters - y",
                                                      "VAR Model Parameters - x",
                                                      "Goodness of Fit",
                                                      "Correlation Matrix of Residuals",
                                                      "Covariance Matrix of Residuals",
                                                      "Model Fit Statistics",
                                                      "Test for Residuals",
                                                      "Forecast",
                                                      "Time Series -y",
                                                      "Time Series -x",
                                                      "ACF -y",
                                                      "ACF -x",
                                                      "ACF Residuals -y",
                                                      "ACF Residuals -x",
                                                      "Residuals -y",
                                                      "Residuals -x",
                                                      "Residuals",
                                                      "Fit Values -y",
                                                      "Fit Values -x",
                                                      "Forecast -y",
                                                      "Forecast -x"}));
}

TEST_F(SequenceTest, EachFlagGatesItsOwnOutputs) {
  VARInputSettings& s = settings;
  const std::pair<bool*, Texts> cases[] = {
      {&s.showDescriptives, {"Descriptive Statistics"}},
      {&s.showParameters, {"VAR Model Parameters - y", "VAR Model Parameters - x"}},
      {&s.showGoodFit, {"Goodness of Fit"}},
      {&s.showCorrMatrix, {"Correlation Matrix of Residuals", "Covariance Matrix of Residuals"}},
      {&s.showEigen, {}},
      {&s.showRes, {"Model Fit Statistics"}},
      {&s.showMse, {"Model Fit Statistics"}},
      {&s.showRmse, {"Model Fit Statistics"}},
      {&s.showMae, {"Model Fit Statistics"}},
      {&s.showMape, {"Model Fit Statistics"}},
      {&s.showRSquare, {"Model Fit Statistics"}},
      {&s.showAdjRSquare, {"Model Fit Statistics"}},
      {&s.showTestAutocorrelation, {"Test for Residuals"}},
      {&s.showTestNormality, {"Test for Residuals"}},
      {&s.showResidAcf, {}},
      {&s.showForecasts, {"Forecast"}},
      {&s.plotTimeSeries, {"Time Series -y", "Time Series -x"}},
      {&s.plotAcf, {"ACF -y", "ACF -x"}},
      {&s.plotResAcf, {"ACF Residuals -y", "ACF Residuals -x"}},
      {&s.plotRes, {"Residuals -y", "Residuals -x"}},
      {&s.plotResComb, {"Residuals"}},
      {&s.plotResAcfComb, {}},
      {&s.plotFit, {"Fit Values -y", "Fit Values -x"}},
      {&s.plotForecast, {"Forecast -y", "Forecast -x"}},
  };
  for (const auto& [flag, names] : cases) {
    for (bool* other : allFlags()) *other = false;
    *flag = true;
    ASSERT_EQ(run(), 0);
    EXPECT_EQ(itemNames(), names);
  }
  EXPECT_EQ(std::size(cases), allFlags().size());
}

TEST_F(SequenceTest, NothingRequestedHandsOverAnEmptyDocument) {
  ASSERT_EQ(run(), 0);
  const std::string document = R"({"procedure":"Vector Autoregressive Models","subtitle":"","items":[]})";
  EXPECT_EQ(out, "JSON " + std::string(36, '~') + "\n" + document + "\n");
  EXPECT_EQ(json(session.document), document);
  EXPECT_EQ(trace, "");
}

TEST_F(SequenceTest, DumpAndDocumentAreTheSameText) {
  requestEverything();
  results[0].pValues[0][1] = std::numeric_limits<double>::quiet_NaN();
  results[0].lowerLimits[0][0] = -std::numeric_limits<double>::infinity();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(out, "JSON " + std::string(36, '~') + "\n" + json(session.document) + "\n");
  EXPECT_TRUE(items()[1]["cells"][1][3].IsNull());
  EXPECT_TRUE(items()[1]["cells"][0][4].IsNull());
}

TEST_F(SequenceTest, NoResultsIsAFailureWithoutOutput) {
  requestEverything();
  results.clear();
  EXPECT_EQ(run(), 1);
  EXPECT_EQ(trace, "Error: VAROutputGen::start - output results are empty\n");
  EXPECT_EQ(out, "");
  EXPECT_TRUE(session.document.IsNull());
}

TEST_F(SequenceTest, RoutinesSayWhatTheyLack) {
  VAROutputGen generator(&procedure, dataSource, &settings, &algo);
  const auto traced = [&](int (VAROutputGen::*routine)(), int status) {
    testing::internal::CaptureStderr();
    EXPECT_EQ((generator.*routine)(), status);
    return testing::internal::GetCapturedStderr();
  };
  const std::string error = "Error: VAROutputGen::";
  settings.showTestNormality = settings.showMse = true;
  settings.endogenousNames.clear();
  EXPECT_EQ(traced(&VAROutputGen::generateTimeSeriesChart, 1),
            error + "generateTimeSeriesChart - No endogenous variables\n");
  EXPECT_EQ(traced(&VAROutputGen::generateACFChart, 1), error + "generateACFChart - No endogenous variables\n");
  EXPECT_EQ(traced(&VAROutputGen::generateResidualsChart, 1),
            error + "generateResidualsChart - No endogenous variables\n");
  EXPECT_EQ(traced(&VAROutputGen::generateResidualsCombinedChart, 1),
            error + "generateResidualsCombinedChart - No endogenous variables\n");
  EXPECT_EQ(traced(&VAROutputGen::generateResidualCovarianceMatrix, 1), "");
  settings.endogenousNames = {"y", "x"};
  settings.endogenousSeries.clear();
  EXPECT_EQ(traced(&VAROutputGen::generateTimeSeriesChart, 1),
            error + "generateTimeSeriesChart - No results or data available\n");
  EXPECT_EQ(traced(&VAROutputGen::generateFitValuesChart, 1),
            error + "generateFitValuesChart - No results or data available\n");
  EXPECT_EQ(traced(&VAROutputGen::generateForecastChart, 1),
            error + "generateForecastChart - No results or data available\n");
  results.clear();
  EXPECT_EQ(traced(&VAROutputGen::generateACFChart, 1), error + "generateACFChart - No results available\n");
  EXPECT_EQ(traced(&VAROutputGen::generateResidualDiagnostics, 1),
            error + "generateResidualDiagnostics - No results available\n");
  EXPECT_EQ(traced(&VAROutputGen::generateForecastTable, 1), error + "generateForecastTable - No results available\n");
  EXPECT_EQ(traced(&VAROutputGen::generateModelFitStatistics, 1), "");
  EXPECT_EQ(traced(&VAROutputGen::generateDescriptiveStatistics, 1), "");
  EXPECT_EQ(traced(&VAROutputGen::generateModelParameters, 1), "");
  algo.lagOrders.clear();
  EXPECT_EQ(traced(&VAROutputGen::generateLagOrderCriteria, 1), "");
}

TEST_F(SequenceTest, MarkersAreReplacedOnceAndTextsComeFromTheDictionary) {
  session.dictionaryFolder = std::filesystem::path(testing::TempDir()) / "output_dictionary";
  std::filesystem::create_directories(session.dictionaryFolder);
  std::ofstream(session.dictionaryFolder / "de.json")
      << R"x({"^1 CI Lower": "Untergrenze (^1)", "Optimal lag: ": "Bestes: ", "Lag ": "V", "Forecast -": "Prognose: "})x";
  settings.showParameters = settings.showGoodFit = settings.useAic = settings.plotForecast = true;
  session.language = "de";
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(items()[0]["columns"][4]["label"], "Untergrenze (95%)");
  EXPECT_EQ(items()[0]["columns"][5]["label"], "95% CI Upper");
  EXPECT_EQ(items()[2]["footnotes"][0], "Bestes:  1 .AIC : V2 ");
  EXPECT_EQ(items()[3]["name"], "Prognose: y");
  std::filesystem::remove_all(session.dictionaryFolder);

  session.language = "en";
  const VAROutputGen generator(&procedure, dataSource, &settings, &algo);
  EXPECT_EQ(generator.localize("^1 and ^1", "a"), "a and ^1");
  EXPECT_EQ(generator.localize("^2 of ^1", "a", "b"), "b of a");
  EXPECT_EQ(generator.localize("^", "a"), "^");
  EXPECT_EQ(generator.localize("no marker", "a", "b"), "no marker");
}

}  // namespace
}  // namespace varmodel
