// The PREDICT request, the labels and the horizon, as the handlers leave them.

#include "procedures/common/predict_request.h"
#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kNoForecasts = "The forecast table is not created because no forecasts could be calculated.";
constexpr const char* kInThePast =
    "The forecast table is not created because no forecasts could be calculated. PREDICT THRU date is before the last "
    "observed date.";
constexpr const char* kModel = "VARMODEL /MODEL ENDOGENOUS=a b MAXLAG=2 /METHOD TYPE=[OLS]";
constexpr const char* kModelPredict = "VARMODEL PREDICT /MODEL ENDOGENOUS=a b MAXLAG=2 /METHOD TYPE=[OLS]";

std::vector<std::string> labelTexts(const TimeAxis& axis) {
  std::vector<std::string> texts;
  for (const procedures::ForecastLabel& label : axis.forecastLabels) texts.push_back(label.text);
  return texts;
}

// Six cases, 1990Q1 to 1991Q2 where dated.
class TimeAxisTest : public ProcedureTest {
 protected:
  void SetUp() override {
    number("a", {1, 2, 3, 4, 5, 6});
    number("b", {2, 1, 4, 3, 6, 5});
  }
  void quarters() {
    number("YEAR_", {1990, 1990, 1990, 1990, 1991, 1991});
    number("QUARTER_", {1, 2, 3, 4, 1, 2});
    const int column = static_cast<int>(session.dataset.columns.size());
    session.trends.dateVariables = {{column - 2, 2, 0}, {column - 1, 3, 4}};
  }
  void predictThruQuarter(double year, double quarter) {
    session.trends.predictSet = session.trends.predictIsDate = true;
    session.trends.dateVariables.at(0).predictThru = year;
    session.trends.dateVariables.at(1).predictThru = quarter;
  }
  void predictThruCase(long caseNumber) {  // 0: through the end
    session.trends.predictSet = true;
    session.trends.predictCase = caseNumber;
  }
  const TimeAxis& axisAfter(const std::string& commandText) {
    const TimeAxis& axis = validate(commandText).timeAxis;
    EXPECT_EQ(status, 0) << testing::PrintToString(errors());
    return axis;
  }
};

TEST_F(TimeAxisTest, DateVariablesAreRecordedAndLabelledWithoutATarget) {
  const TimeAxis& undated = axisAfter(kModel);
  EXPECT_FALSE(undated.predictRequested || undated.hasDateVariables);
  EXPECT_EQ(undated.observedRows, 6);
  EXPECT_THAT(undated.historicalLabels, IsEmpty());
  quarters();
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_FALSE(axis.predictRequested);
  EXPECT_TRUE(axis.hasDateVariables);
  EXPECT_THAT(axis.dateVariableIndexes, ElementsAre(2, 3));
  EXPECT_THAT(axis.dateVariableNames, ElementsAre("YEAR_", "QUARTER_"));
  EXPECT_THAT(axis.timeUnitNames, ElementsAre("YEAR", "QUARTER"));
  EXPECT_THAT(axis.dateValues, ElementsAre(SizeIs(6), ElementsAre(1, 2, 3, 4, 1, 2)));
  EXPECT_THAT(axis.historicalLabels, ElementsAre("1990Q1", "1990Q2", "1990Q3", "1990Q4", "1991Q1", "1991Q2"));
  const TimeAxis& untargeted = axisAfter(kModelPredict);
  EXPECT_TRUE(untargeted.predictRequested);
  EXPECT_THAT(untargeted.forecastLabels, IsEmpty());
  EXPECT_THAT(untargeted.historicalLabels, SizeIs(6));
  EXPECT_THAT(warnings(), IsEmpty());
}

TEST_F(TimeAxisTest, AThruDateSetsTheHorizonAndItsLabels) {
  const struct {
    double year;
    double quarter;
    std::vector<std::string> labels;
    std::vector<std::string> warnings;
  } cases[] = {
      {1991, 4, {"1991Q3", "1991Q4"}, {}},
      {1991, 2, {}, {kNoForecasts}},
      {1991, 1, {}, {kInThePast}},
      {1980, 1, {}, {kInThePast}},
      {1992, kSystemMissing, {"1991Q3", "1991Q4", "1992Q1"}, {}},  // the first quarter is the origin
      {1992, 7, {}, {}},                                           // no quarter: told in the trace
  };
  quarters();
  for (const auto& thru : cases) {
    SCOPED_TRACE(std::to_string(thru.year) + ' ' + std::to_string(thru.quarter));
    session.messages.clear();
    predictThruQuarter(thru.year, thru.quarter);
    const TimeAxis& axis = axisAfter(kModel);
    EXPECT_TRUE(axis.predictRequested);
    EXPECT_FALSE(axis.predictThruEnd);
    EXPECT_EQ(labelTexts(axis), thru.labels);
    EXPECT_THAT(axis.historicalLabels, SizeIs(6));
    EXPECT_EQ(warnings(), thru.warnings);
  }
  EXPECT_THAT(err.lines(), Contains(testing::StartsWith("Warning: ")));
}

TEST_F(TimeAxisTest, ACaseNumberCountsFromTheObservedRows) {
  predictThruCase(8);
  const TimeAxis& axis = axisAfter(kModel);
  EXPECT_EQ(axis.predictThruCase, 8);
  EXPECT_THAT(labelTexts(axis), ElementsAre("7", "8"));
  EXPECT_EQ(axis.forecastLabels[1].caseOffset, 7);
  EXPECT_THAT(axis.historicalLabels, ElementsAre("1", "2", "3", "4", "5", "6"));
  EXPECT_THAT(warnings(), IsEmpty());
  predictThruCase(6);
  EXPECT_THAT(axisAfter(kModel).forecastLabels, IsEmpty());
  EXPECT_THAT(warnings(), ElementsAre(kNoForecasts));
}

TEST_F(TimeAxisTest, LabelsComeFromTheTextVariableWithoutTrailingBlanks) {
  text("DATE_", {"Q1 90", "Q2 90  ", " Q3 90", "", "Q1 91", "Q2 91"}, 8);
  EXPECT_THAT(axisAfter(kModelPredict).historicalLabels, IsEmpty());  // not read without date variables
  quarters();
  EXPECT_THAT(axisAfter(kModel).historicalLabels, ElementsAre("Q1 90", "Q2 90", " Q3 90", "", "Q1 91", "Q2 91"));
  session.dataset.columns[2].name = "date_";
  EXPECT_EQ(axisAfter(kModel).historicalLabels.at(0), "1990Q1");
  session.dataset.columns[2] = session.dataset.columns[0];  // a number
  session.dataset.columns[2].name = "DATE_";
  EXPECT_EQ(axisAfter(kModel).historicalLabels.at(0), "1990Q1");
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
  predictThruQuarter(1991, 2);  // the last row, and yet ahead of the last row used: no warning
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

TEST(TimeUnitName, CoversTheCodesAndNothingElse) {
  const char* names[] = {"UNKNOWN", "YEAR",   "QUARTER", "MONTH", "WEEK",   "DAY",
                         "HOUR",    "MINUTE", "SECOND",  "OBS",   "UNKNOWN"};
  for (int code = 1; code <= 11; ++code) EXPECT_STREQ(procedures::timeUnitName(code), names[code - 1]);
}

}  // namespace
}  // namespace varmodel
