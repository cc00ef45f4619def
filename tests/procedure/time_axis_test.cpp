// The PREDICT request, the labels and the horizon, as the handlers leave them.

#include "data/date_labels.h"
#include "data/predict_request.h"
#include "syntax/subcommands.h"
#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr const char* kNoForecasts = "The forecast table is not created because no forecasts could be calculated.";
constexpr const char* kInThePast =
    "The forecast table is not created because no forecasts could be calculated. PREDICT THRU date is before the last "
    "observed date.";
constexpr const char* kModel = "VARMODEL /MODEL ENDOGENOUS=a b MAXLAG=2 /METHOD TYPE=[OLS]";
constexpr const char* kModelPredict = "VARMODEL PREDICT /MODEL ENDOGENOUS=a b MAXLAG=2 /METHOD TYPE=[OLS]";

// Six cases, 1990Q1 to 1991Q2 where dated.
class TimeAxisTest : public ProcedureTest {
 protected:
  void SetUp() override {
    number("a", {1, 2, 3, 4, 5, 6});
    number("b", {2, 1, 4, 3, 6, 5});
  }
  const TimeAxis& axisAfter(const std::string& commandText) {
    const TimeAxis& axis = validate(commandText).timeAxis;
    EXPECT_EQ(status, 0) << testing::PrintToString(errors());
    return axis;
  }
};

TEST_F(TimeAxisTest, WithoutDatesAndRequestThereIsNothing) {
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_FALSE(axis.predictRequested);
  EXPECT_FALSE(axis.hasDateVariables);
  EXPECT_EQ(axis.observedRows, 6);
  EXPECT_THAT(axis.dateValues, IsEmpty());
  EXPECT_THAT(axis.historicalLabels, IsEmpty());
  EXPECT_THAT(out.lines(), AllOf(Contains("getPredictThruFromTrendsInfo - qHi=0, qHiDate=0, hiCase=0"),
                                 Contains("PREDICT THRU not specified - no forecasting will be performed")));
  EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(TimeAxisTest, DateVariablesAreRecordedAndLabelledWithoutARequest) {
  quarters();
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_TRUE(axis.hasDateVariables);
  EXPECT_THAT(axis.dateVariableIndexes, ElementsAre(2, 3));
  EXPECT_THAT(axis.dateVariableNames, ElementsAre("YEAR_", "QUARTER_"));
  EXPECT_THAT(axis.timeUnitNames, ElementsAre("YEAR", "QUARTER"));
  EXPECT_THAT(axis.dateValues, ElementsAre(SizeIs(6), ElementsAre(1, 2, 3, 4, 1, 2)));
  EXPECT_THAT(axis.historicalLabels, SizeIs(6));
  EXPECT_THAT(axis.forecastLabels, IsEmpty());
  EXPECT_THAT(out.lines(), Contains("VARSubCommands::generateHistoricalDateLabels - DATE_ not found, using "
                                    "TfoDateHandler fallback"));
}

TEST_F(TimeAxisTest, TheKeywordAloneRequestsForecastsWithoutATarget) {
  quarters();
  const TimeAxis& axis = axisAfter(kModelPredict);
  EXPECT_TRUE(axis.predictRequested);
  EXPECT_THAT(axis.forecastLabels, IsEmpty());
  EXPECT_THAT(warnings(), IsEmpty());
  EXPECT_THAT(out.lines(),
              AllOf(Contains("VARSubCommands::get_Subcommand_Global - PREDICT parameter found in global command"),
                    Contains("Generated 6 historical date labels")));
}

TEST_F(TimeAxisTest, ADateAfterTheLastCaseSetsTheHorizonAndItsLabels) {
  quarters();
  predictThruQuarter(1991, 4);
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_TRUE(axis.predictRequested);
  EXPECT_FALSE(axis.predictThruEnd);
  EXPECT_EQ(axis.predictThruDate, (PredictThruDate{1991, 4}));
  EXPECT_THAT(labelTexts(axis), ElementsAre("1991Q3", "1991Q4"));
  EXPECT_EQ(axis.forecastLabels[1].caseOffset, 7);
  EXPECT_THAT(axis.historicalLabels, ElementsAre("1990Q1", "1990Q2", "1990Q3", "1990Q4", "1991Q1", "1991Q2"));
  EXPECT_THAT(out.lines(),
              AllOf(Contains("VARSubCommands::generateForecastDatesUsingTfo - Date validation:"),
                    Contains("  Last observed case offset: 5"), Contains("  Target PREDICT THRU offset: 7"),
                    Contains("  Forecast periods to generate: 2"),
                    Contains("Forecast period 1: caseOffset=6, dateLabel='1991Q3'"),
                    Contains("Forecast period 2: caseOffset=7, dateLabel='1991Q4'")));
}

TEST_F(TimeAxisTest, ATargetThatIsNotAheadWarnsOnceAndIsNoFailure) {
  const struct {
    double year;
    double quarter;
    const char* warning;
  } cases[] = {{1991, 2, kNoForecasts}, {1991, 1, kInThePast}, {1980, 1, kInThePast}};
  quarters();
  for (const auto& target : cases) {
    session.messages.clear();
    predictThruQuarter(target.year, target.quarter);
    EXPECT_THAT(axisAfter(kModel).forecastLabels, IsEmpty());
    EXPECT_THAT(warnings(), ElementsAre(target.warning));
  }
}

TEST_F(TimeAxisTest, AMissingComponentTakesItsPeriodsOrigin) {
  quarters();
  predictThruQuarter(1992, kSystemMissing);
  EXPECT_THAT(labelTexts(axisAfter(kModel)), ElementsAre("1991Q3", "1991Q4", "1992Q1"));
  EXPECT_THAT(out.lines(),
              Contains("VARSubCommands::generateForecastDatesUsingTfo - SetIndexes failed, using KORVEL approach"));
}

TEST_F(TimeAxisTest, ATargetThatNamesNoPeriodLeavesNoHorizonAndSaysSo) {
  quarters();
  predictThruQuarter(1992, 7);
  EXPECT_THAT(axisAfter(kModel).forecastLabels, IsEmpty());
  EXPECT_THAT(warnings(), IsEmpty());
  EXPECT_THAT(err.lines(), Contains(testing::StartsWith("Warning: ")));
}

TEST_F(TimeAxisTest, ComponentsThatFitNoSlotAreIgnored) {
  quarters();
  predictThruQuarter(1991.9, 8589934597.0);
  session.trends.dateVariables.push_back({0, 11, 0, 5.0});
  TimeAxis axis;
  ProcedureDataSource dataSource;
  EXPECT_TRUE(readPredictRequest(dataSource, "EXCLUDE", axis));
  EXPECT_EQ(axis.predictThruDate, (PredictThruDate{1991}));
  EXPECT_THAT(axis.timeUnitNames, ElementsAre("YEAR", "QUARTER", "UNKNOWN"));
}

TEST_F(TimeAxisTest, ThroughTheEndForecastsNothing) {
  quarters();
  predictThruCase(0);
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_TRUE(axis.predictThruEnd);
  EXPECT_THAT(axis.forecastLabels, IsEmpty());
  EXPECT_THAT(axis.historicalLabels, SizeIs(6));
  EXPECT_THAT(warnings(), IsEmpty());
  EXPECT_THAT(out.lines(),
              AllOf(Contains("PREDICT THRU END detected - using existing date variables without forecasting"),
                    Contains("Date variables found: 2"),
                    Contains("VARSubCommands::get_Subcommand_Global - PREDICT THRU END detected, skipping forecast "
                             "date generation"),
                    Not(Contains(HasSubstr("Date validation")))));
}

TEST_F(TimeAxisTest, ACaseNumberCountsFromTheObservedRows) {
  predictThruCase(8);
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_EQ(axis.predictThruCase, 8);
  EXPECT_FALSE(axis.hasDateVariables);
  EXPECT_THAT(labelTexts(axis), ElementsAre("7", "8"));
  EXPECT_THAT(axis.historicalLabels, ElementsAre("1", "2", "3", "4", "5", "6"));
}

TEST_F(TimeAxisTest, ACaseNumberAmongTheObservedRowsWarns) {
  predictThruCase(6);
  axisAfter(kModel);
  EXPECT_THAT(warnings(), ElementsAre(kNoForecasts));
}

TEST_F(TimeAxisTest, LabelsComeFromTheTextVariableWithoutTrailingBlanks) {
  text("DATE_", {"Q1 90", "Q2 90  ", " Q3 90", "", "Q1 91", "Q2 91"}, 8);
  quarters();
  EXPECT_THAT(axisAfter(kModel).historicalLabels, ElementsAre("Q1 90", "Q2 90", " Q3 90", "", "Q1 91", "Q2 91"));
  EXPECT_THAT(out.lines(), Contains("VARSubCommands::generateHistoricalDateLabels - Found DATE_ variable at index 2, "
                                    "with width 8"));
}

TEST_F(TimeAxisTest, OnlyAStringVariableOfThatExactNameGivesLabels) {
  text("date_", {"x", "x", "x", "x", "x", "x"}, 1);
  quarters();
  EXPECT_EQ(axisAfter(kModel).historicalLabels.at(0), "1990Q1");
  session.dataset.columns[2] = session.dataset.columns[0];
  session.dataset.columns[2].name = "DATE_";
  EXPECT_EQ(axisAfter(kModel).historicalLabels.at(0), "1990Q1");
}

TEST_F(TimeAxisTest, WithoutDateVariablesTheTextVariableIsNotRead) {
  text("DATE_", {"x", "x", "x", "x", "x", "x"}, 1);
  EXPECT_THAT(axisAfter(kModelPredict).historicalLabels, IsEmpty());
  EXPECT_THAT(out.lines(), Contains("VARSubCommands::generateHistoricalDateLabels - No date data available"));
}

TEST_F(TimeAxisTest, ARaggedEndIsForecastFromTheLastRowUsed) {
  quarters();
  session.dataset.columns[1].numbers[5] = kSystemMissing;
  predictThruQuarter(1991, 3);
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_EQ(axis.observedRows, 6);
  EXPECT_THAT(axis.keptCaseOffsets, ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(axis.historicalLabels, ElementsAre("1990Q1", "1990Q2", "1990Q3", "1990Q4", "1991Q1"));
  EXPECT_THAT(labelTexts(axis), ElementsAre("1991Q2", "1991Q3"));
}

TEST_F(TimeAxisTest, AWarningOfTheFirstLabellingIsDroppedWhenTheRaggedEndLeavesAHorizon) {
  quarters();
  session.dataset.columns[0].numbers[5] = kSystemMissing;
  predictThruQuarter(1991, 2);
  EXPECT_THAT(labelTexts(axisAfter(kModel)), ElementsAre("1991Q2"));
  EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(TimeAxisTest, AGapInsideTheSampleTakesItsLabelAlong) {
  session.dataset.columns[0].numbers[2] = kSystemMissing;
  predictThruCase(7);
  const TimeAxis& byCase = axisAfter(kModel);
  EXPECT_THAT(byCase.historicalLabels, ElementsAre("1", "2", "4", "5", "6"));
  EXPECT_THAT(labelTexts(byCase), ElementsAre("7"));

  quarters();
  predictThruQuarter(1991, 3);
  const TimeAxis& byDate = axisAfter(kModel);
  EXPECT_THAT(byDate.historicalLabels, ElementsAre("1990Q1", "1990Q2", "1990Q4", "1991Q1", "1991Q2"));
  EXPECT_THAT(labelTexts(byDate), ElementsAre("1991Q3"));
}

TEST_F(TimeAxisTest, LabelsAreClearedWhenAKeptCaseHasNone) {
  TimeAxis axis;
  axis.historicalLabels = {"x", "y"};
  ProcedureDataSource dataSource;
  followKeptCases(dataSource, {0, 2}, axis);
  EXPECT_THAT(axis.historicalLabels, IsEmpty());
}

TEST(TimeUnitName, CoversTheCodesAndNothingElse) {
  const char* names[] = {"YEAR", "QUARTER", "MONTH", "WEEK", "DAY", "HOUR", "MINUTE", "SECOND", "OBS"};
  for (int code = 2; code <= 10; ++code) EXPECT_STREQ(timeUnitName(code), names[code - 2]);
  for (const int code : {-1, 0, 1, 11}) EXPECT_STREQ(timeUnitName(code), "UNKNOWN");
}

}  // namespace
}  // namespace varmodel
