#include <gmock/gmock.h>

#include "dates_fixture.h"
#include "workbench/dates/case_label.h"

namespace workbench {
namespace {

using testing::_;
using testing::ElementsAre;
using testing::FieldsAre;
using testing::HasSubstr;

std::vector<std::string> namesOf(const Dataset& dataset) {
  std::vector<std::string> names;
  for (const Column& column : dataset.columns) names.push_back(column.name);
  return names;
}

TEST(DefineDates, StartMakesTheDateVariablesAndTheLabels) {
  const Session session = sessionWith(rows(5), startAt({{Unit::year, 1959}, {Unit::quarter, 3}}));
  const std::vector<Column>& columns = session.dataset.columns;
  ASSERT_THAT(namesOf(session.dataset), ElementsAre("YEAR_", "QUARTER_", "DATE_"));
  EXPECT_THAT(columns[0].numbers, ElementsAre(1959, 1959, 1960, 1960, 1960));
  EXPECT_THAT(columns[1].numbers, ElementsAre(3, 4, 1, 2, 3));
  EXPECT_EQ(columns[2].kind, ColumnKind::text);
  EXPECT_EQ(columns[2].textWidth, 6);
  EXPECT_THAT(columns[2].texts, ElementsAre("1959Q3", "1959Q4", "1960Q1", "1960Q2", "1960Q3"));
  EXPECT_THAT(session.trends.dateVariables,
              ElementsAre(FieldsAre(0, 2, 0, kSystemMissing), FieldsAre(1, 3, 4, kSystemMissing)));
}

TEST(DefineDates, ComponentColumnsAreTheDateVariables) {
  Dataset dataset = rows(4);
  addNumbers(dataset, "quarter", {1, 3, 1, 3});
  addNumbers(dataset, "x", {1, 2, 3, 4});
  addNumbers(dataset, "year", {1959, 1959, 1960, 1960});
  const Session session = sessionWith(dataset, byVariables({{Unit::year, "year"}, {Unit::quarter, "quarter"}}));
  ASSERT_THAT(namesOf(session.dataset), ElementsAre("quarter", "x", "year", "DATE_"));
  EXPECT_THAT(session.dataset.columns[3].texts, ElementsAre("1959Q1", "1959Q3", "1960Q1", "1960Q3"));
  EXPECT_THAT(session.trends.dateVariables, ElementsAre(FieldsAre(2, 2, 0, _), FieldsAre(0, 3, 4, _)));
}

TEST(DefineDates, ChecksComponentColumnsRowByRow) {
  struct Case {
    std::vector<double> years, quarters;
    std::string part;
  };
  const std::vector<Case> table{
      {{1959, 1959, 1959}, {1, 2, 4}, "columns \"year\", \"quarter\": row 3 (1959Q4) does not follow row 2 (1959Q2)"},
      {{1960, 1959, 1959},
       {1, 3, 4},
       "it is earlier, the rows are not sorted. Give --sort (in a job file, under [dates]: sort = true)."},
      {{1959, 1959, 1959}, {1, 2, 5}, "row 3 after row 2 (1959Q2) holds no date: quarter must be 1 to 4 here, not 5"},
      {{1959, 1959, 1959}, {1, 2.5, 3}, "row 2 after row 1 (1959Q1) holds no date: \"quarter\" is not a whole number"},
      {{kSystemMissing, 1959, 1959}, {1, 2, 3}, "row 1 holds no date: \"year\" is missing"}};
  for (const Case& fault : table) {
    Dataset dataset = rows(3);
    addNumbers(dataset, "year", fault.years);
    addNumbers(dataset, "quarter", fault.quarters);
    const DatesRequest request = byVariables({{Unit::year, "year"}, {Unit::quarter, "quarter"}});
    EXPECT_THAT(faultOf<DataError>([&] { sessionWith(dataset, request); }), HasSubstr(fault.part));
  }
}

TEST(DefineDates, RefusesRequestsThatCannotBeMeant) {
  Dataset dataset = datedRows({"2000-01-01", "2000-01-02"});
  addNumbers(dataset, "year", {2000, 2001});
  addNumbers(dataset, "count", {7, 8});
  DatesRequest both = byColumn("date");
  both.start = {{Unit::year, 2000}};
  const std::vector<std::pair<DatesRequest, std::string>> table{
      {{}, "exactly one of"},
      {both, "exactly one of"},
      {startAt({{Unit::year, 2000}, {Unit::day, 1}}), "start is incomplete: add month"},
      {startAt({{Unit::year, 2000}, {Unit::quarter, 1}, {Unit::month, 1}}), "start: remove quarter"},
      {startAt({{Unit::year, 2001}, {Unit::month, 2}, {Unit::day, 30}}), "day must be 1 to 28 here, not 30"},
      {startAt({{Unit::year, 9999}}), "calendar's end"},
      {byColumn("when"), "no column \"when\" in data.csv"},
      {byColumn("count"),
       "column \"count\" holds no dates (row 1: 7). Name the first case's date instead, such as --start"},
      {byVariables({{Unit::year, "date"}}), "\"date\" is not numeric"},
      {byVariables({{Unit::year, "year"}, {Unit::day, "year"}}), "variables is incomplete: add month"}};
  for (const auto& [request, part] : table) {
    TrendsSettings settings;
    EXPECT_THAT(faultOf<UsageError>([&] { defineDates(dataset, request, settings); }), HasSubstr(part));
    EXPECT_EQ(dataset.columns.size(), 3u);
    EXPECT_TRUE(settings.dateVariables.empty());
  }
}

TEST(DefineDates, UsesExistingDateVariablesOnlyWithTheRightValues) {
  Dataset dataset = rows(2);
  addNumbers(dataset, "year_", {1959, 1960});
  Session session = sessionWith(dataset, startAt({{Unit::year, 1959}}));
  EXPECT_THAT(namesOf(session.dataset), ElementsAre("year_", "DATE_"));
  session.dataset.columns[1].texts = {"first ", "second"};
  EXPECT_EQ(caseLabel(session.dataset, session.trends, 0), "first");
  EXPECT_EQ(caseLabel(session.dataset, session.trends, 2), "1961");
  EXPECT_THAT(faultOf<UsageError>([&] {
                sessionWith(dataset, startAt({{Unit::year, 1958}}));
              }),
              HasSubstr("column \"year_\" has the name of a date variable but another value than 1958 in row 1"));
}

TrendsSettings predictedFor(const Session& session, const PredictRequest& request) {
  TrendsSettings settings = session.trends;
  definePredict(session.dataset, request, settings);
  return settings;
}

PredictRequest thru(const DateComponents& date) {
  return {.date = date, .caseNumber = {}, .end = false, .period = {}};
}
PredictRequest thruCase(std::int64_t number) {
  return {.date = {}, .caseNumber = number, .end = false, .period = {}};
}
PredictRequest thruText(const std::string& text) {
  return {.date = {}, .caseNumber = {}, .end = false, .period = text};
}

class DefinePredict : public testing::Test {
 protected:
  DefinePredict() { undated_.dataset = rows(203); }

  Session quarters_ = sessionWith(rows(203), startAt({{Unit::year, 1959}, {Unit::quarter, 1}}));
  Session undated_;
};

TEST_F(DefinePredict, TargetsAreDatesWhereTheCasesHaveDates) {
  for (const PredictRequest& request :
       {thru({{Unit::year, 2011}, {Unit::quarter, 3}}), thruCase(211), thruText("2011Q3"), thruText("Q3 2011")}) {
    const TrendsSettings dated = predictedFor(quarters_, request);
    EXPECT_TRUE(dated.predictSet && dated.predictIsDate);
    EXPECT_EQ(dated.predictCase, 0);
    EXPECT_EQ(periodsAhead(quarters_.dataset, dated), 8);
    EXPECT_THAT(dated.dateVariables, ElementsAre(FieldsAre(0, 2, 0, 2011), FieldsAre(1, 3, 4, 3)));
  }
  const TrendsSettings end = predictedFor(quarters_, {.date = {}, .caseNumber = {}, .end = true, .period = {}});
  EXPECT_TRUE(end.predictSet && !end.predictIsDate);
  EXPECT_EQ(end.predictCase, 0);
  EXPECT_EQ(end.dateVariables[0].predictThru, kSystemMissing);
  const TrendsSettings numbered = predictedFor(undated_, thruCase(211));
  EXPECT_TRUE(numbered.predictSet && !numbered.predictIsDate);
  EXPECT_EQ(numbered.predictCase, 211);
}

TEST_F(DefinePredict, RefusesWhatCannotBeForecast) {
  const Session fiveYearly = sessionWith(datedRows({"1990-01-01", "1995-01-01", "2000-01-01"}), byColumn("date"));
  struct Case {
    const Session& session;
    PredictRequest request;
    std::string part;
  };
  const std::vector<Case> table{
      {undated_, thru({{Unit::year, 2011}}), "the cases have no dates"},
      {undated_, thruCase(203 + kMaximumHorizon + 1), "10001 periods after the last case"},
      {quarters_, PredictRequest(), "give a date, a case number"},
      {quarters_, thru({{Unit::year, 2011}, {Unit::month, 4}}), "is incomplete: add quarter"},
      {quarters_, thru({{Unit::year, 2011}, {Unit::quarter, 5}}), "quarter must be 1 to 4 here, not 5"},
      {quarters_, thru({{Unit::year, 4509}, {Unit::quarter, 4}}), "4509Q4 lies 10001 periods after the last case"},
      {quarters_, thruCase(0), "count from 1"},
      {quarters_, thruText("2011Q5"),
       "\"2011Q5\" is no quarter, and those are the periods of the cases. Write it as 2009Q4"},
      {quarters_, thruText("2009Q3"),
       "2009Q3 does not lie after the last case (2009Q3). Give a later period, such as 2009Q4"},
      {undated_, thruText("2009Q3"), "the cases have no dates"},
      {fiveYearly, thruCase(9000), "calendar's end"}};
  for (const Case& fault : table) {
    EXPECT_THAT(faultOf<UsageError>([&] { predictedFor(fault.session, fault.request); }), HasSubstr(fault.part));
  }
  EXPECT_TRUE(predictedFor(quarters_, thru({{Unit::year, 4509}, {Unit::quarter, 3}})).predictIsDate);
}

}  // namespace
}  // namespace workbench
