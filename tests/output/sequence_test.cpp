// What is produced, in which order, and how it is handed over.

#include "tests/output/output_fixture.h"

namespace varmodel {
namespace {

using SequenceTest = OutputFixture;

TEST_F(SequenceTest, EachFlagGatesItsOwnOutputsAndTogetherTheyStandInThisOrder) {
  VARInputSettings& s = settings;
  Texts everything;
  const std::pair<std::vector<bool*>, Texts> cases[] = {
      {{&s.showDescriptives}, {"Descriptive Statistics"}},
      {{&s.showParameters}, {"VAR Model Parameters - y", "VAR Model Parameters - x"}},
      {{&s.showGoodFit}, {"Goodness of Fit"}},
      {{&s.showCorrMatrix}, {"Correlation Matrix of Residuals", "Covariance Matrix of Residuals"}},
      {{&s.showRes, &s.showMse, &s.showRmse, &s.showMae, &s.showMape, &s.showRSquare, &s.showAdjRSquare},
       {"Model Fit Statistics"}},
      {{&s.showTestAutocorrelation, &s.showTestNormality}, {"Test for Residuals"}},
      {{&s.showForecasts}, {"Forecast"}},
      {{&s.plotTimeSeries}, {"Time Series -y", "Time Series -x"}},
      {{&s.plotAcf}, {"ACF -y", "ACF -x"}},
      {{&s.plotResAcf}, {"ACF Residuals -y", "ACF Residuals -x"}},
      {{&s.plotRes}, {"Residuals -y", "Residuals -x"}},
      {{&s.plotResComb}, {"Residuals"}},
      {{&s.plotFit}, {"Fit Values -y", "Fit Values -x"}},
      {{&s.plotForecast}, {"Forecast -y", "Forecast -x"}},
      {{&s.showEigen, &s.showResidAcf, &s.plotResAcfComb}, {}},
  };
  for (const auto& [flags, names] : cases) {
    for (bool* flag : flags) {
      for (bool* other : allFlags()) *other = other == flag;
      ASSERT_EQ(run(), 0);
      EXPECT_EQ(itemNames(), names);
    }
    everything.insert(everything.end(), names.begin(), names.end());
  }
  requestEverything();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(itemNames(), everything);
}

TEST_F(SequenceTest, NothingRequestedHandsOverAnEmptyDocument) {
  ASSERT_EQ(run(), 0);
  const std::string document = R"({"procedure":"Vector Autoregressive Models","subtitle":"","items":[]})";
  EXPECT_EQ(out, "JSON " + std::string(36, '~') + "\n" + document + "\n");
  EXPECT_EQ(jsonOf(session.document), document);
  EXPECT_EQ(trace, "");
}

TEST_F(SequenceTest, DumpAndDocumentAreTheSameText) {
  requestEverything();
  results[0].pValues[0][1] = std::numeric_limits<double>::quiet_NaN();
  results[0].lowerLimits[0][0] = -std::numeric_limits<double>::infinity();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(out, "JSON " + std::string(36, '~') + "\n" + jsonOf(session.document) + "\n");
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
  using Generator = VAROutputGen;
  Generator generator(&procedure, dataSource, &settings, &algo);
  const auto lacks = [&](int (Generator::*routine)(), const std::string& error) {
    testing::internal::CaptureStderr();
    EXPECT_EQ((generator.*routine)(), 1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Error: VAROutputGen::" + error + "\n");
  };
  settings.showTestNormality = true;
  settings.endogenousNames.clear();
  lacks(&Generator::generateACFChart, "generateACFChart - No endogenous variables");
  lacks(&Generator::generateResidualsCombinedChart, "generateResidualsCombinedChart - No endogenous variables");
  settings.endogenousNames = {"y", "x"};
  settings.endogenousSeries.clear();
  lacks(&Generator::generateTimeSeriesChart, "generateTimeSeriesChart - No results or data available");
  lacks(&Generator::generateFitValuesChart, "generateFitValuesChart - No results or data available");
  lacks(&Generator::generateForecastChart, "generateForecastChart - No results or data available");
  results.clear();
  lacks(&Generator::generateACFChart, "generateACFChart - No results available");
  lacks(&Generator::generateResidualDiagnostics, "generateResidualDiagnostics - No results available");
  lacks(&Generator::generateForecastTable, "generateForecastTable - No results available");
}

TEST_F(SequenceTest, MarkersAreReplacedOnceAndTextsComeFromTheDictionary) {
  write(R"x({"^1 CI Lower": "Untergrenze (^1)", "Optimal lag: ": "Bestes: ", "Lag ": "V", "Forecast -": "P: "})x");
  settings.showParameters = settings.showGoodFit = settings.useAic = settings.plotForecast = true;
  session.language = workbench::Language("de", {});
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(items()[0]["columns"][4]["label"], "Untergrenze (95%)");
  EXPECT_EQ(items()[0]["columns"][5]["label"], "95% CI Upper");
  EXPECT_EQ(items()[2]["footnotes"][0], "Bestes:  1 .AIC : V2 ");
  EXPECT_EQ(items()[3]["name"], "P: y");

  session.language = {};
  const VAROutputGen generator(&procedure, dataSource, &settings, &algo);
  EXPECT_EQ(generator.localize("^1 and ^1", "a"), "a and ^1");
  EXPECT_EQ(generator.localize("^2 of ^1", "a", "b"), "b of a");
  EXPECT_EQ(generator.localize("^", "a"), "^");
  EXPECT_EQ(generator.localize("no marker", "a", "b"), "no marker");
}

}  // namespace
}  // namespace varmodel
