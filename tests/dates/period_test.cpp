#include "workbench/dates/period.h"

#include <gmock/gmock.h>

#include "workbench/dates/case_calendar.h"
#include "workbench/dates/labels.h"

namespace workbench {
namespace {

using Parts = std::vector<std::int64_t>;

Period periodOf(Unit unit, const Parts& parts) {
  return Period::of(unit, parts).value();
}

struct Step {
  Unit unit;
  Parts from;
  std::int64_t count;
  std::string label;
};

TEST(Period, LabelsCarryOverEveryBoundary) {
  const std::vector<Step> steps{
      {Unit::year, {1959}, 0, "1959"},
      {Unit::quarter, {2009, 3}, 1, "2009Q4"},
      {Unit::quarter, {1970, 1}, -1, "1969Q4"},
      {Unit::month, {1959, 12}, 1, "1960M01"},
      {Unit::month, {1970, 1}, -13, "1968M12"},
      {Unit::week, {2009, 53}, 1, "2010W01"},
      {Unit::week, {2020, 52}, 1, "2020W53"},
      {Unit::week, {1960, 1}, -1, "1959W53"},
      {Unit::day, {2000, 2, 28}, 1, "2000-02-29"},
      {Unit::day, {1900, 2, 28}, 1, "1900-03-01"},
      {Unit::hour, {1959, 12, 31, 23}, 1, "1960-01-01 00:00"},
      {Unit::minute, {1959, 1, 31, 13, 4}, 1, "1959-01-31 13:05"},
      {Unit::second, {1959, 1, 31, 13, 5, 8}, 1, "1959-01-31 13:05:09"},
      {Unit::observation, {9}, 8, "17"},
  };
  for (const Step& step : steps) {
    EXPECT_EQ(periodLabel(periodOf(step.unit, step.from).shifted(step.count).value()), step.label);
  }
}

// Published ISO 8601 week dates of calendar days around new year.
TEST(Period, WeeksAreThoseOfIso8601) {
  const std::vector<std::pair<Parts, std::string>> days{
      {{1977, 1, 1}, "1976W53"},   {{1977, 1, 2}, "1976W53"},   {{1977, 12, 31}, "1977W52"}, {{1978, 1, 2}, "1978W01"},
      {{1979, 12, 31}, "1980W01"}, {{1980, 12, 28}, "1980W52"}, {{1980, 12, 29}, "1981W01"}, {{1982, 1, 3}, "1981W53"}};
  for (const auto& [day, label] : days) {
    const std::chrono::sys_days date{std::chrono::days{periodOf(Unit::day, day).ordinal()}};
    EXPECT_EQ(periodLabel(Period::containing(Unit::week, date).value()), label);
  }
}

TEST(Period, RefusesWhatIsNoPeriod) {
  const std::vector<std::pair<Unit, Parts>> impossible = {
      {Unit::year, {10000}},          {Unit::quarter, {1959, 5}},
      {Unit::quarter, {1959}},        {Unit::month, {1959, 0}},
      {Unit::week, {2010, 53}},       {Unit::day, {2001, 2, 29}},
      {Unit::hour, {1959, 1, 1, 24}}, {Unit::second, {1959, 1, 1, 0, 60, 0}},
      {Unit::observation, {0}},
  };
  for (const auto& [unit, parts] : impossible) EXPECT_FALSE(Period::of(unit, parts)) << unitName(unit);
  EXPECT_FALSE(periodOf(Unit::year, {9999}).shifted(1));
  EXPECT_FALSE(periodOf(Unit::week, {1, 1}).shifted(-1));
  EXPECT_FALSE(periodOf(Unit::second, {2000, 1, 1, 0, 0, 0}).shifted(std::numeric_limits<std::int64_t>::max()));
  EXPECT_FALSE((CaseCalendar{periodOf(Unit::day, {2000, 1, 1}), 7}.period(std::numeric_limits<std::int64_t>::max())));
}

// Every period's components name it again, its labels grow as text, and the case counting of a stepped calendar
// inverts.
TEST(Period, RoundTripsOverThousandsOfOffsets) {
  const std::vector<std::pair<Unit, Parts>> firsts{{Unit::year, {1000}},
                                                   {Unit::quarter, {1000, 4}},
                                                   {Unit::month, {1000, 12}},
                                                   {Unit::week, {1899, 52}},
                                                   {Unit::day, {1899, 12, 31}},
                                                   {Unit::hour, {1999, 12, 31, 23}},
                                                   {Unit::second, {1969, 12, 31, 23, 0, 0}}};
  for (const auto& [unit, parts] : firsts) {
    const CaseCalendar calendar{periodOf(unit, parts), unit == Unit::year ? 1 : 3};
    std::string previous;
    for (std::int64_t offset = 0; offset < 8000; ++offset) {
      const Period period = calendar.period(offset).value();
      ASSERT_EQ(Period::of(unit, period.components()), period) << periodLabel(period);
      ASSERT_EQ(calendar.caseOffset(period), offset);
      ASSERT_EQ(calendar.caseOffset(period, true), offset);
      const std::string label = periodLabel(period);
      ASSERT_LT(previous, label);
      previous = label;
    }
  }
}

}  // namespace
}  // namespace workbench
