#include "workbench/dates/inference.h"

#include <gmock/gmock.h>

#include "dates_fixture.h"
#include "workbench/dates/case_label.h"

namespace workbench {
namespace {

struct Series {
  std::vector<std::string> dates;
  Unit unit;
  std::int64_t step;
  std::string last;  // label of the last row
};

TEST(Inference, FindsEveryFrequency) {
  const std::vector<Series> table{
      {{"1959-01-01", "1960-01-01", "1961-01-01"}, Unit::year, 1, "1961"},
      {{"1950-12-31", "1955-12-31", "1960-12-31"}, Unit::year, 5, "1960"},
      {{"1959-01-01", "1959-04-01", "1959-07-01", "1959-10-01", "1960-01-01"}, Unit::quarter, 1, "1960Q1"},
      {{"1959-03-31", "1959-06-30", "1959-09-30", "1959-12-31"}, Unit::quarter, 1, "1959Q4"},
      {{"2000-01-01", "2000-07-01", "2001-01-01"}, Unit::quarter, 2, "2001Q1"},
      {{"2019-01-31", "2019-02-28", "2019-03-31", "2019-04-30"}, Unit::month, 1, "2019M04"},
      {{"2023-12-29", "2024-01-31", "2024-02-29", "2024-03-28"}, Unit::month, 1, "2024M03"},  // last trading days
      {{"2020-12-21", "2020-12-28", "2021-01-04"}, Unit::week, 1, "2021W01"},
      {{"2024-03-22", "2024-03-28", "2024-04-05"}, Unit::week, 1, "2024W14"},  // a Friday moved to Thursday
      {{"2024-01-01", "2024-01-15", "2024-01-29", "2024-02-12", "2024-02-26"}, Unit::week, 2, "2024W09"},
      {{"1959-12-31", "1960-01-01"}, Unit::day, 1, "1960-01-01"},
      {{"2024-02-28 09:00", "2024-02-29 09:00", "2024-03-01 09:00"}, Unit::day, 1, "2024-03-01"},
      {{"2023-12-31 22:00", "2023-12-31 23:00", "2024-01-01 00:00"}, Unit::hour, 1, "2024-01-01 00:00"},
      {{"2024-01-01 00:45", "2024-01-01 01:00", "2024-01-01 01:15"}, Unit::minute, 15, "2024-01-01 01:15"},
      {{"2024-01-01 00:00", "2024-01-01 01:30", "2024-01-01 03:00"}, Unit::minute, 90, "2024-01-01 03:00"},
      {{"2024-01-01 00:00:58", "2024-01-01 00:00:59", "2024-01-01 00:01:00"}, Unit::second, 1, "2024-01-01 00:01:00"},
  };
  for (const Series& series : table) {
    SCOPED_TRACE(series.dates.front() + " to " + series.dates.back());
    const Session session = sessionWith(datedRows(series.dates), byColumn("date"));
    const CaseCalendar calendar = caseCalendar(session.dataset, session.trends).value();
    EXPECT_EQ(calendar.first.unit(), series.unit);
    EXPECT_EQ(calendar.step, series.step);
    EXPECT_EQ(session.dataset.columns.back().texts.back(), series.last);
  }
}

// Over many rows, periods of four weeks drift away from the months that they resemble at first.
TEST(Inference, FourWeeksAreNoMonth) {
  std::vector<std::int64_t> instants;
  for (std::int64_t i = 0; i < 500; ++i) instants.push_back(instantOf("2019-12-15") + i * 4 * 604'800'000'000);
  EXPECT_THAT(inferFrequency(instants), testing::FieldsAre(Unit::week, 4, false));
}

TEST(Inference, NamesTheFirstRowThatDoesNotFollow) {
  using Texts = std::vector<std::string>;  // dates, and parts of the message about them
  const std::vector<std::pair<Texts, Texts>> table{
      {{"1959-01-01", "1959-04-01", "1959-10-01", "1960-01-01", "1960-04-01"},
       {"column \"date\": row 3 (1959-10-01) does not follow row 2 (1959-04-01): 1959Q3 is missing", "--fill-gaps",
        "fill_gaps = true"}},
      {{"2000-01-31", "2000-02-29", "2000-06-30", "2000-07-31", "2000-08-31"},
       {"row 3 (2000-06-30)", "row 2 (2000-02-29)", "2000M03 to 2000M05 are missing"}},
      {{"2000-01-01", "2000-02-01", "2000-02-01", "2000-03-01"},
       {"row 3 (2000-02-01)", "row 2 (2000-02-01)", "same month", "GROUP BY"}},
      {{"2000-01-03", "2000-01-02", "2000-01-01"},
       {"row 2 (2000-01-02)", "row 1 (2000-01-03)", "from the last date to the first", "--sort", "sort = true"}},
      {{"2000-01-01", "2000-01-01"}, {"row 2 (2000-01-01)", "row 1 (2000-01-01)", "same day"}},
      {{"2000-01-01", "", "2000-01-03"}, {"row 2 after row 1 (2000-01-01) has no date", "IS NOT NULL"}},
      {{""}, {"row 1 has no date"}},
      {{"2000-01-01"}, {"one row does not tell the frequency", "start ="}},
      {{"2000-01-01", "2000-01-03", "2000-01-05", "2000-01-08", "2000-01-10"},
       {"row 4 (2000-01-08)", "row 3 (2000-01-05)", "3 days later", "2 days is the most common distance"}},
      {{"2000-01-02", "2000-01-03", "2000-01-01"}, {"row 3 (2000-01-01)", "it is earlier", "--sort"}},
      {{"2024-01-04", "2024-01-05", "2024-01-08", "2024-01-09", "2024-01-12", "2024-01-15"},
       {"row 5 (2024-01-12)", "2024-01-10 to 2024-01-11 are missing", "holidays", "observation = 1"}},
      {{"2000-01-01", "2000-01-02", "2000-01-05", "2000-01-11", "2000-01-25"},
       {"row 3 (2000-01-05)", "row 2 (2000-01-02)", "2000-01-03 to 2000-01-04 are missing"}},
  };
  for (const auto& [dates, parts] : table) {
    const std::string text = faultOf<DataError>([&] { sessionWith(datedRows(dates), byColumn("date")); });
    for (const std::string& part : parts) EXPECT_THAT(text, testing::HasSubstr(part));
  }
}

TEST(Inference, RefusesInstantsOutsideTheCalendarAndFinerThanSeconds) {
  Dataset dataset = datedRows({"2000-01-01", "2000-01-02"});
  std::vector<std::int64_t>& instants = dataset.columns[0].instants;
  const auto fault = [&] { return faultOf<DataError>([&] { sessionWith(dataset, byColumn("date")); }); };
  instants[1] = std::numeric_limits<std::int64_t>::max();
  EXPECT_THAT(fault(), testing::HasSubstr("row 2 after row 1 (2000-01-01) has a date outside the years 1 to 9999"));
  instants[1] = instants[0] + 250'000;
  EXPECT_THAT(fault(), testing::HasSubstr("row 2 (2000-01-01 00:00:00.250000) does not follow row 1 (2000-01-01)"));
}

}  // namespace
}  // namespace workbench
