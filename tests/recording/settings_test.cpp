// What the handlers make of parameters that a parser would not let through, and of every keyword.

#include "procedures/varmodel/syntax/input_settings.h"

#include <gmock/gmock.h>

#include <set>

#include "procedures/common/long_work.h"
#include "procedures/common/original_scale.h"
#include "procedures/varmodel/syntax/subcommands.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

using varmodel::VARInputSettings;

// A record on what the host was given.
struct Parsed {
  ProcedureDataSource dataSource;
  CommandDescriptor descriptor{"VARMODEL"};
  CommandSpec spec;
  VARInputSettings settings{&spec, &descriptor, &dataSource};
};

constexpr int kModel = 2;
constexpr int kModelFit = 4;
constexpr int kPlot = 5;

struct KeywordRow {
  int handler;
  const char* keyword;
  bool VARInputSettings::*flag;
};
constexpr KeywordRow kKeywords[] = {
    {kModel, "AIC", &VARInputSettings::useAic},
    {kModel, "BIC", &VARInputSettings::useBic},
    {kModel, "HQIC", &VARInputSettings::useHqic},
    {kModelFit, "DESCRIPTIVES", &VARInputSettings::showDescriptives},
    {kModelFit, "GOODFIT", &VARInputSettings::showGoodFit},
    {kModelFit, "PARAMETERS", &VARInputSettings::showParameters},
    {kModelFit, "RES", &VARInputSettings::showRes},
    {kModelFit, "RESIDACF", &VARInputSettings::showResidAcf},
    {kModelFit, "MSE", &VARInputSettings::showMse},
    {kModelFit, "RMSE", &VARInputSettings::showRmse},
    {kModelFit, "MAE", &VARInputSettings::showMae},
    {kModelFit, "MAPE", &VARInputSettings::showMape},
    {kModelFit, "RSQUARE", &VARInputSettings::showRSquare},
    {kModelFit, "ARSQUARE", &VARInputSettings::showAdjRSquare},
    {kModelFit, "CORRMATRIX", &VARInputSettings::showCorrMatrix},
    {kModelFit, "EIGEN", &VARInputSettings::showEigen},
    {kModelFit, "TNORM", &VARInputSettings::showTestNormality},
    {kModelFit, "TAUTO", &VARInputSettings::showTestAutocorrelation},
    {kModelFit, "FORECASTS", &VARInputSettings::showForecasts},
    {kPlot, "TIMESERIES", &VARInputSettings::plotTimeSeries},
    {kPlot, "ACF", &VARInputSettings::plotAcf},
    {kPlot, "RES", &VARInputSettings::plotRes},
    {kPlot, "RESCOMB", &VARInputSettings::plotResComb},
    {kPlot, "RESACF", &VARInputSettings::plotResAcf},
    {kPlot, "RESACFCOMB", &VARInputSettings::plotResAcfComb},
    {kPlot, "FIT", &VARInputSettings::plotFit},
    {kPlot, "FORECAST", &VARInputSettings::plotForecast},
};

// The keywords whose flags the handler turns on for this list.
std::vector<std::string> keywordsOn(int handler, const std::vector<std::string>& words) {
  Host host;
  giveQuarters(host, 1993, 1);
  giveModel(host);
  host.command["MODEL"]["LAG"].words = handler == kModel ? words : std::vector<std::string>();
  host.command["MODELSTATISTICS"]["MODELFIT"].words = words;
  host.command["SERIESPLOT"]["PLOT"].words = words;
  Parsed parsed;
  traceOf([&] { parsed.settings.prepareInputSetting(handler); });
  std::vector<std::string> on;
  for (const KeywordRow& row : kKeywords) {
    if (parsed.settings.*row.flag)
      on.push_back((row.handler == handler ? "" : "another's ") + std::string(row.keyword));
  }
  return on;
}

TEST(Settings, AKeywordTurnsOnItsFlagAndNoOther) {
  for (const KeywordRow& row : kKeywords) {
    std::set<std::string> words = {row.keyword};
    if (row.handler == kModelFit) words.insert("PARAMETERS");  // required beside any other
    EXPECT_THAT(keywordsOn(row.handler, {words.begin(), words.end()}), testing::UnorderedElementsAreArray(words));
  }
  EXPECT_THAT(keywordsOn(kPlot, {"FITS", "fit", "FI", "", "ACF", "ACF"}), testing::ElementsAre("ACF"));
}

TEST(Settings, WhatCannotBeReadKeepsItsDefault) {
  Host host;
  giveQuarters(host, 1993, 1);
  giveModel(host);
  host.command["METHOD"]["TYPE"].words = {};
  host.command["AUXILIARY"]["CILEVEL"] = {};
  host.command["SAVE"] = {{"FILE", {{"out"}}}, {"PREDICTED", {{""}}}, {"NRESIDUAL", {{"r"}}}};
  host.command["MODEL"]["LAG"].words = {};
  Parsed parsed;
  EXPECT_EQ(parsed.settings.methodType, "OLS");
  EXPECT_TRUE(parsed.settings.lagSpecified);
  parsed.settings.methodType = "?";
  parsed.settings.ciLevel = 1;
  traceOf([&] { EXPECT_EQ(parsed.settings.start(), 0); });
  EXPECT_EQ(parsed.settings.methodType, "OLS");
  EXPECT_EQ(parsed.settings.ciLevel, 95.0);
  EXPECT_EQ(parsed.settings.predictedPrefix, "PRE_");
  EXPECT_EQ(parsed.settings.residualPrefix, "r");
  EXPECT_THAT(host.calls, testing::Contains("Init(\"out\",false,true)"));
  EXPECT_TRUE(parsed.settings.lagSpecified);
}

TEST(Settings, HandlersAreNumberedUpToEight) {
  Host host;
  Parsed parsed;
  const auto prepare = [&](int index, int expected) {
    return traceOf([&] { EXPECT_EQ(parsed.settings.prepareInputSetting(index), expected); });
  };
  EXPECT_EQ(prepare(8, 0), "");
  for (const int index : {-1, 9}) {
    EXPECT_EQ(prepare(index, 1),
              "! VARInputSettings::prepareInputSetting - ERROR: Unknown sub-command: " + std::to_string(index) + '\n');
  }
}

class Fetch : public testing::Test {
 protected:
  Fetch() { giveQuarters(host, 1993, 1); }
  // Fetches the columns; returns the status and the trace.
  std::pair<int, std::string> fetch(const std::vector<std::int32_t>& indexes, const char* userMissing) {
    Parsed parsed;
    parsed.settings.userMissing = userMissing;
    int status = -1;
    matrix.clear();
    const auto work = [&] {
      status = varmodel::VARSubCommands(parsed.settings).fetchDataFromActiveDataSet(indexes, matrix);
    };
    const std::string trace = traceOf(work);
    return {status, trace};
  }
  static std::string traceWith(const char* status) {
    return std::string(
               "VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 1 variables\n"
               "VARSubCommands::fetchDataFromActiveDataSet - Completed with status: ") +
           status + '\n';
  }

  Host host;
  varmodel::SeriesMatrix matrix;
};

TEST_F(Fetch, ReadsTheColumnsThatThereAre) {
  for (const char* userMissing : {"INCLUDE", "EXCLUDE", "include", ""}) {
    host.calls.clear();
    EXPECT_EQ(fetch({-1, 4, 5}, userMissing).first, 1);  // there are five columns
    EXPECT_THAT(matrix, testing::ElementsAre(testing::ElementsAre(1, 2, 3, 4, 1, 2, 3, 4, 1, 2, 3, 4)));
    const std::string excludes = userMissing == std::string("INCLUDE") ? "false" : "true";
    EXPECT_THAT(host.calls, testing::Contains("AddVariable(4,false,true," + excludes + ",true)"));
  }
}

TEST_F(Fetch, PassesOverWhatCarriesNoValues) {
  host.withoutRecord = 2;
  host.withoutValues = 5;
  EXPECT_EQ(fetch({4}, "").first, 1);
  EXPECT_THAT(matrix, testing::ElementsAre(testing::ElementsAre(1, 2, 4, 1, 3, 4, 1, 2, 3, 4)));
  giveModel(host);
  Parsed parsed;
  traceOf([&] { EXPECT_EQ(parsed.settings.start(), 0); });
  EXPECT_EQ(parsed.settings.timeAxis.observedRows, 10);
  EXPECT_THAT(parsed.settings.timeAxis.keptCaseOffsets, testing::ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST_F(Fetch, SucceedsWithOneCaseAndFailsWithNone) {
  host.columns = {{.name = "a", .numbers = {7}}};
  EXPECT_EQ(fetch({0}, ""), std::pair(1, traceWith("SUCCESS")));
  host.columns[0].numbers.clear();
  EXPECT_EQ(fetch({0}, ""), std::pair(0, traceWith("FAILURE")));
  EXPECT_THAT(matrix, testing::IsEmpty());
}

TEST_F(Fetch, EndsWithAHostThatDeliversWhatCannotBe) {
  host.goesOnForEver = true;
  const std::pair<int, std::string> endless = fetch({4}, "");
  EXPECT_EQ(endless.first, 0);
  EXPECT_THAT(endless.second, testing::HasSubstr("! fetchDataFromActiveDataSet: Standard exception: The host delivers "
                                                 "records without values.\n"));
  host.goesOnForEver = false;
  for (const int size : {6, 1 << 20, -1}) {
    host.recordSize = size;
    const std::pair<int, std::string> wide = fetch({4}, "");
    EXPECT_EQ(wide.first, 0) << size;
    EXPECT_THAT(wide.second, testing::HasSubstr("values where at most 5 are possible.\n"));
  }
}

// This host has no function of host/long_work.h, nor of host/original_scale.h.
TEST(LongWork, RunsOnOneThreadInAHostThatDoesNotKnowIt) {
  EXPECT_EQ(procedures::threadsAllowed(), 1u);
  EXPECT_FALSE(procedures::hostProgress());
  EXPECT_FALSE(procedures::originalScale(0));
}

}  // namespace
}  // namespace recording
