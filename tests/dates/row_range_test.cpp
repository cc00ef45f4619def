#include "workbench/dates/row_range.h"

#include <gmock/gmock.h>

#include "dates_fixture.h"
#include "workbench/dates/date_guess.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

Session quarters() {
  Dataset dataset = rows(5);
  addNumbers(dataset, "x", {1, 2, 3, 4, 5});
  return sessionWith(dataset, startAt({{Unit::year, 1959}, {Unit::quarter, 3}}));
}

Session undated() {
  Session session;
  session.dataset = rows(3);
  addNumbers(session.dataset, "x", {1, 2, 3});
  return session;
}

Dataset kept(Session session, const RowRange& range) {
  keepRange(session.dataset, session.trends, range);
  return session.dataset;
}

TEST(RowRange, KeepsTheCasesBetweenItsBounds) {
  EXPECT_THAT(kept(quarters(), {"1959Q4", "1960Q2"}).columns[0].numbers, ElementsAre(2, 3, 4));
  EXPECT_THAT(kept(quarters(), {"", "Q4 1959"}).columns[0].numbers, ElementsAre(1, 2));
  EXPECT_THAT(kept(quarters(), {}).columns[0].numbers, ElementsAre(1, 2, 3, 4, 5));
  // Between two cases a range begins with the later one and ends with the earlier one.
  Dataset halfYears = datedRows({"2000-01-01", "2000-07-01", "2001-01-01", "2001-07-01"});
  addNumbers(halfYears, "x", {1, 2, 3, 4});
  EXPECT_THAT(kept(sessionWith(halfYears, byColumn("date")), {"2000Q2", "2001Q2"}).columns[1].numbers,
              ElementsAre(2, 3));
  EXPECT_THAT(kept(undated(), {"2", ""}).columns[0].numbers, ElementsAre(2, 3));
  EXPECT_THAT(kept(quarters(), {"1960Q1", ""}).columns.back().texts, ElementsAre("1960Q1", "1960Q2", "1960Q3"));
}

TEST(RowRange, RefusesBoundsThatAreNoCases) {
  const std::vector<std::pair<RowRange, std::string>> table{
      {{"1959", ""}, "'from': \"1959\" is no quarter. The cases are 1959Q3 to 1960Q3."},
      {{"1959Q2", ""}, "lies outside of the cases, which are 1959Q3 to 1960Q3."},
      {{"", "1961Q1"}, "'to': \"1961Q1\" lies outside"},
      {{"1960Q2", "1960Q1"}, "'from' (1960Q2) comes after 'to' (1960Q1)"}};
  for (const auto& [range, part] : table) {
    EXPECT_THAT(faultOf<UsageError>([&, &bounds = range] { kept(quarters(), bounds); }), HasSubstr(part));
  }
  EXPECT_THAT(faultOf<UsageError>([] { kept(undated(), {"1959Q2", ""}); }), HasSubstr("no case number"));
}

TEST(DateGuess, FindsColumnsThatDateTheRowsAndSaysWhyOthersDoNot) {
  Dataset dataset = datedRows({"2000-01-31", "2000-02-29", "2000-03-31", "2000-05-31"});
  addNumbers(dataset, "Year", {2000, 2000, 2000, 2000});
  addNumbers(dataset, "quarter", {1, 2, 3, 4});
  addNumbers(dataset, "rate", {2000, 2100, 1999, 2001});
  const std::vector<DateGuess> guesses = guessDates(dataset);
  ASSERT_EQ(guesses.size(), 2u);
  EXPECT_EQ(guesses[0].request.variables.at(Unit::year), "Year");
  EXPECT_EQ(guesses[0].first + " " + guesses[0].last + " " + std::string(unitName(guesses[0].unit)),
            "2000Q1 2000Q4 quarter");
  EXPECT_EQ(guesses[1].request.column, "date");
  EXPECT_THAT(guesses[1].fault.text(), HasSubstr("2000M04 is missing"));
}

}  // namespace
}  // namespace workbench
