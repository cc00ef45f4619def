#include <gmock/gmock.h>

#include "dates_fixture.h"
#include "workbench/dates/case_label.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(DefineDates, StartMakesTheDateVariablesAndTheLabels) {
  const Session session = sessionWith(rows(5), startAt({{Unit::year, 1959}, {Unit::quarter, 3}}));
  const std::vector<Column>& columns = session.dataset.columns;
  ASSERT_EQ(columns.size(), 3u);
  EXPECT_EQ(columns[0].name, "YEAR_");
  EXPECT_THAT(columns[0].numbers, ElementsAre(1959, 1959, 1960, 1960, 1960));
  EXPECT_EQ(columns[1].name, "QUARTER_");
  EXPECT_THAT(columns[1].numbers, ElementsAre(3, 4, 1, 2, 3));
  EXPECT_EQ(columns[2].name, "DATE_");
  EXPECT_EQ(columns[2].kind, ColumnKind::text);
  EXPECT_EQ(columns[2].textWidth, 6);
  EXPECT_THAT(columns[2].texts, ElementsAre("1959Q3", "1959Q4", "1960Q1", "1960Q2", "1960Q3"));

  const std::vector<DateVariable>& variables = session.trends.dateVariables;
  ASSERT_EQ(variables.size(), 2u);
  EXPECT_EQ(variables[0].unitCode, 2);
  EXPECT_EQ(variables[0].periodicity, 0);
  EXPECT_EQ(variables[1].column, 1);
  EXPECT_EQ(variables[1].unitCode, 3);
  EXPECT_EQ(variables[1].periodicity, 4);
}

struct Names {
  DateComponents start;
  std::vector<std::string> names;
};

TEST(DefineDates, EveryFrequencyHasItsOwnVariables) {
  const std::vector<Names> table{
      {{{Unit::year, 1959}}, {"YEAR_", "DATE_"}},
      {{{Unit::year, 1959}, {Unit::month, 12}}, {"YEAR_", "MONTH_", "DATE_"}},
      {{{Unit::year, 1959}, {Unit::week, 53}}, {"YEAR_", "WEEK_", "DATE_"}},
      {{{Unit::year, 1959}, {Unit::month, 2}, {Unit::day, 28}}, {"YEAR_", "MONTH_", "DAY_", "DATE_"}},
      {{{Unit::year, 1959}, {Unit::month, 2}, {Unit::day, 28}, {Unit::hour, 23}, {Unit::minute, 0}, {Unit::second, 59}},
       {"YEAR_", "MONTH_", "DAY_", "HOUR_", "MINUTE_", "SECOND_", "DATE_"}},
      {{{Unit::observation, 1}}, {"OBS_", "DATE_"}}};
  for (const Names& expected : table) {
    const Session session = sessionWith(rows(3), startAt(expected.start));
    std::vector<std::string> names;
    for (const Column& column : session.dataset.columns) names.push_back(column.name);
    EXPECT_EQ(names, expected.names);
  }
}

TEST(DefineDates, ComponentColumnsAreTheDateVariables) {
  Dataset dataset = rows(4);
  addNumbers(dataset, "quarter", {3, 4, 1, 2});
  addNumbers(dataset, "x", {1, 2, 3, 4});
  addNumbers(dataset, "year", {1959, 1959, 1960, 1960});
  const Session session = sessionWith(dataset, byVariables({{Unit::year, "year"}, {Unit::quarter, "quarter"}}));
  EXPECT_EQ(session.dataset.columns.size(), 4u);
  EXPECT_THAT(labelColumn(session.dataset), ElementsAre("1959Q3", "1959Q4", "1960Q1", "1960Q2"));
  ASSERT_EQ(session.trends.dateVariables.size(), 2u);
  EXPECT_EQ(session.trends.dateVariables[0].column, 2);
  EXPECT_EQ(session.trends.dateVariables[1].column, 0);
}

TEST(DefineDates, ChecksComponentColumnsRowByRow) {
  struct Case {
    std::vector<double> years, quarters;
    std::vector<std::string> parts;
  };
  const std::vector<Case> table{
      {{1959, 1959, 1959}, {1, 2, 4}, {"columns \"year\", \"quarter\": row 3 (1959Q4) does not follow row 2 (1959Q2)"}},
      {{1959, 1959, 1959}, {1, 2, 2}, {"row 3 (1959Q2)", "row 2 (1959Q2)", "same quarter"}},
      {{1960, 1959, 1959}, {1, 3, 4}, {"row 2 (1959Q3)", "row 1 (1960Q1)", "ORDER BY \"year\", \"quarter\""}},
      {{1959, 1959, 1959}, {1, 2, 5}, {"row 3 after row 2 (1959Q2) holds no date: quarter must be 1 to 4 here, not 5"}},
      {{1959, 1959, 1959}, {1, 2.5, 3}, {"row 2 after row 1 (1959Q1)", "\"quarter\" is not a whole number"}},
      {{kSystemMissing, 1959, 1959}, {1, 2, 3}, {"row 1 holds no date: \"year\" is missing"}}};
  for (const Case& fault : table) {
    Dataset dataset = rows(3);
    addNumbers(dataset, "year", fault.years);
    addNumbers(dataset, "quarter", fault.quarters);
    const DatesRequest request = byVariables({{Unit::year, "year"}, {Unit::quarter, "quarter"}});
    const std::string text = faultOf<DataError>([&] { sessionWith(dataset, request); });
    for (const std::string& part : fault.parts) EXPECT_THAT(text, HasSubstr(part));
  }
}

TEST(DefineDates, RefusesRequestsThatCannotBeMeant) {
  Dataset dataset = datedRows({"2000-01-01", "2000-01-02"});
  addNumbers(dataset, "year", {2000, 2001});
  DatesRequest both = byColumn("date");
  both.start = {{Unit::year, 2000}};
  const std::vector<std::pair<DatesRequest, std::string>> table{
      {{}, "exactly one of"},
      {both, "exactly one of"},
      {startAt({{Unit::quarter, 1}}), "start is incomplete: add year"},
      {startAt({{Unit::year, 2000}, {Unit::day, 1}}), "start is incomplete: add month"},
      {startAt({{Unit::year, 2000}, {Unit::quarter, 1}, {Unit::month, 1}}), "start: remove quarter"},
      {startAt({{Unit::year, 2000}, {Unit::observation, 1}}), "start: remove year"},
      {startAt({{Unit::year, 2001}, {Unit::month, 2}, {Unit::day, 30}}), "day must be 1 to 28 here, not 30"},
      {startAt({{Unit::year, 2010}, {Unit::week, 53}}), "week must be 1 to 52 here, not 53"},
      {startAt({{Unit::year, 9999}}), "calendar's end"},
      {byColumn("when"), "no column \"when\" in data.csv"},
      {byColumn("year"), "CAST(year AS DATE)"},
      {byVariables({{Unit::year, "date"}}), "\"date\" is not numeric"},
      {byVariables({{Unit::year, "year"}, {Unit::day, "year"}}), "variables is incomplete: add month"}};
  for (const auto& [request, part] : table) {
    TrendsSettings settings;
    EXPECT_THAT(faultOf<UsageError>([&] { defineDates(dataset, request, settings); }), HasSubstr(part));
    EXPECT_EQ(dataset.columns.size(), 2u);
    EXPECT_TRUE(settings.dateVariables.empty());
  }
}

TEST(DefineDates, UsesExistingDateVariablesOnlyWithTheRightValues) {
  Dataset dataset = rows(2);
  addNumbers(dataset, "year_", {1959, 1960});
  Column labels;
  labels.name = "DATE_";
  labels.kind = ColumnKind::text;
  labels.texts = {"first ", "second"};
  dataset.columns.push_back(labels);
  const Session session = sessionWith(dataset, startAt({{Unit::year, 1959}}));
  EXPECT_EQ(session.dataset.columns.size(), 2u);
  EXPECT_EQ(caseLabel(session, 0), "first");
  EXPECT_EQ(caseLabel(session, 2), "1961");
  EXPECT_THAT(faultOf<UsageError>([&] {
                sessionWith(dataset, startAt({{Unit::year, 1958}}));
              }),
              HasSubstr("column \"year_\" has the name of a date variable but another value than 1958 in row 1"));
}

TEST(CaseLabel, IsTheCaseNumberWithoutDates) {
  Session session;
  session.dataset = rows(3);
  EXPECT_EQ(caseLabel(session, 6), "7");
}

TrendsSettings predictedFor(const Session& session, const PredictRequest& request) {
  TrendsSettings settings = session.trends;
  definePredict(session.dataset, request, settings);
  return settings;
}

PredictRequest thru(const DateComponents& date) {
  return {.date = date, .caseNumber = {}, .end = false};
}
PredictRequest thruCase(std::int64_t number) {
  return {.date = {}, .caseNumber = number, .end = false};
}

Session quarterly(std::size_t count = 203) {
  return sessionWith(rows(count), startAt({{Unit::year, 1959}, {Unit::quarter, 1}}));
}

TEST(DefinePredict, SetsTheComponentsOfTheTarget) {
  const std::vector<PredictRequest> sameTarget{thru({{Unit::year, 2011}, {Unit::quarter, 3}}), thruCase(211)};
  for (const PredictRequest& request : sameTarget) {
    const TrendsSettings settings = predictedFor(quarterly(), request);
    EXPECT_TRUE(settings.predictSet);
    EXPECT_TRUE(settings.predictIsDate);
    EXPECT_EQ(settings.predictCase, 0);
    EXPECT_EQ(settings.dateVariables[0].predictThru, 2011);
    EXPECT_EQ(settings.dateVariables[1].predictThru, 3);
  }
}

TEST(DefinePredict, EndAndUndatedCases) {
  const TrendsSettings end = predictedFor(quarterly(), {.date = {}, .caseNumber = {}, .end = true});
  EXPECT_TRUE(end.predictSet);
  EXPECT_FALSE(end.predictIsDate);
  EXPECT_EQ(end.predictCase, 0);
  EXPECT_EQ(end.dateVariables[0].predictThru, kSystemMissing);

  Session undated;
  undated.dataset = rows(203);
  const TrendsSettings numbered = predictedFor(undated, thruCase(211));
  EXPECT_TRUE(numbered.predictSet);
  EXPECT_FALSE(numbered.predictIsDate);
  EXPECT_EQ(numbered.predictCase, 211);
}

TEST(DefinePredict, RefusesWhatCannotBeForecast) {
  Session undated;
  undated.dataset = rows(203);
  const Session fiveYearly = sessionWith(datedRows({"1990-01-01", "1995-01-01", "2000-01-01"}), byColumn("date"));
  const Session daily = sessionWith(rows(10), startAt({{Unit::year, 2001}, {Unit::month, 1}, {Unit::day, 1}}));
  struct Case {
    const Session& session;
    PredictRequest request;
    std::string part;
  };
  const Session quarters = quarterly();
  const PredictRequest nothing;
  const std::vector<Case> table{
      {undated, thru({{Unit::year, 2011}}), "the cases have no dates"},
      {undated, thruCase(203 + kMaximumHorizon + 1), "10001 periods after the last case"},
      {quarters, nothing, "give a date, a case number"},
      {quarters, thru({{Unit::year, 2011}}), "is incomplete: add quarter"},
      {quarters, thru({{Unit::year, 2011}, {Unit::month, 4}}), "is incomplete: add quarter"},
      {quarters, thru({{Unit::year, 2011}, {Unit::quarter, 5}}), "quarter must be 1 to 4 here, not 5"},
      {quarters, thru({{Unit::year, 4509}, {Unit::quarter, 4}}), "4509Q4 lies 10001 periods after the last case"},
      {quarters, thruCase(0), "count from 1"},
      {quarters, thruCase(203 + kMaximumHorizon + 1), "10001 periods"},
      {daily, thru({{Unit::year, 2001}, {Unit::month, 2}, {Unit::day, 30}}), "day must be 1 to 28 here, not 30"},
      {daily, thru({{Unit::year, 2001}, {Unit::month, 13}, {Unit::day, 1}}), "month must be 1 to 12 here, not 13"},
      {fiveYearly, thruCase(9000), "calendar's end"}};
  for (const Case& fault : table) {
    EXPECT_THAT(faultOf<UsageError>([&] { predictedFor(fault.session, fault.request); }), HasSubstr(fault.part));
  }
  EXPECT_TRUE(predictedFor(quarterly(), thru({{Unit::year, 4509}, {Unit::quarter, 3}})).predictIsDate);
}

}  // namespace
}  // namespace workbench
