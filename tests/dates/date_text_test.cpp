// Dates as people write them, and rows that are not in order, complete, or every day of the week.

#include "workbench/dates/date_text.h"

#include <gmock/gmock.h>

#include "dates_fixture.h"
#include "workbench/dates/case_label.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

Dataset textRows(const std::vector<std::string>& texts) {
  Dataset dataset = rows(texts.size());
  Column column;
  column.name = "date";
  column.kind = ColumnKind::text;
  column.texts = texts;
  dataset.columns.push_back(column);
  return dataset;
}

Dataset numberRows(const std::vector<double>& numbers) {
  Dataset dataset = rows(numbers.size());
  addNumbers(dataset, "date", numbers);
  return dataset;
}

std::vector<std::string> labelsOf(const Dataset& dataset, DatesRequest request = byColumn("date")) {
  return sessionWith(dataset, request).dataset.columns.back().texts;
}

TEST(DateText, EveryUsualWayOfWritingIsRead) {
  const std::vector<std::pair<std::string, std::string>> quarters{
      {"2001Q3", "2001Q4"},     {"2001-Q3", "2001-Q4"},      {"Q3 2001", "Q4 2001"},
      {"2001:3", "2001:4"},     {"3Q 2001", "4Q 2001"},      {"3. Quartal 2001", "4. Quartal 2001"},
      {" q3-2001", "q4-2001 "}, {"2001 Qtr 3", "2001 Qtr 4"}};
  for (const auto& [first, second] : quarters) {
    EXPECT_THAT(labelsOf(textRows({first, second})), ElementsAre("2001Q3", "2001Q4")) << first;
  }
  const std::vector<std::pair<std::string, std::string>> months{{"2001M03", "2001M04"},
                                                                {"2001-03", "2001-04"},
                                                                {"2001/03", "2001/04"},
                                                                {"Mar-2001", "Apr-2001"},
                                                                {"March 2001", "April 2001"},
                                                                {"2001 mar", "2001 apr"},
                                                                {"200103", "200104"},
                                                                {"März 2001", "April 2001"},
                                                                {"03/2001", "04/2001"},
                                                                {"3/31/2001", "4/30/2001"},
                                                                {"31.3.2001", "30.4.2001"},
                                                                {"31 Mar 2001", "30 Apr 2001"},
                                                                {"March 31, 2001", "April 30, 2001"},
                                                                {"20010331", "20010430"},
                                                                {"2001-3-31", "2001-4-30"}};
  for (const auto& [first, second] : months) {
    EXPECT_THAT(labelsOf(textRows({first, second})), ElementsAre("2001M03", "2001M04")) << first;
  }
  EXPECT_THAT(labelsOf(textRows({"2020-W53", "2021-W01"})), ElementsAre("2020W53", "2021W01"));
  EXPECT_THAT(labelsOf(textRows({"1999", "2000"})), ElementsAre("1999", "2000"));
}

TEST(DateText, WhatCanBeReadInTwoWaysIsReadAsTheRowsAllow) {
  EXPECT_THAT(labelsOf(textRows({"2001:11", "2001:12", "2002:1"})), ElementsAre("2001M11", "2001M12", "2002M01"));
  EXPECT_THAT(labelsOf(textRows({"2001:1", "2001:2", "2001:3"})), ElementsAre("2001Q1", "2001Q2", "2001Q3"));
  EXPECT_THAT(labelsOf(textRows({"1/2/2001", "2/2/2001", "3/2/2001"})),
              ElementsAre("2001-02-01", "2001-02-02", "2001-02-03"));
  EXPECT_THAT(labelsOf(textRows({"1/1/2001", "4/1/2001", "7/1/2001", "10/1/2001", "1/1/2002"})),
              ElementsAre("2001Q1", "2001Q2", "2001Q3", "2001Q4", "2002Q1"));
  // The reader of text files takes 4/1/2001 for 4 January.
  EXPECT_THAT(labelsOf(datedRows({"2001-01-01", "2001-01-04", "2001-01-07", "2001-01-10", "2002-01-01"})),
              ElementsAre("2001Q1", "2001Q2", "2001Q3", "2001Q4", "2002Q1"));
}

TEST(DateText, NumbersAreReadAsTheDatesThatTheyCanOnlyBe) {
  const std::vector<std::pair<std::vector<double>, std::vector<std::string>>> table{
      {{1999, 2000, 2001}, {"1999", "2000", "2001"}},
      {{199911, 199912, 200001}, {"1999M11", "1999M12", "2000M01"}},
      {{20010331, 20010630, 20010930}, {"2001Q1", "2001Q2", "2001Q3"}},
      {{1959.5, 1959.75, 1960}, {"1959Q3", "1959Q4", "1960Q1"}},
      {{1959.3, 1959.4, 1960.1}, {"1959Q3", "1959Q4", "1960Q1"}},
      {{1959.83, 1959.92, 1960, 1960.0833}, {"1959M11", "1959M12", "1960M01", "1960M02"}}};
  for (const auto& [numbers, labels] : table) EXPECT_EQ(labelsOf(numberRows(numbers)), labels) << numbers[0];
}

TEST(DateText, WhatIsNoDateIsNamedWithItsRow) {
  const std::vector<std::pair<Dataset, std::string>> table{
      {textRows({"2001Q3", "2001Q4", "2001Q5"}),
       "row 3 after row 2 (2001Q4) holds \"2001Q5\", which is no date like \"2001Q3\""},
      {textRows({"2001Q3", "2001Q4", "Total"}), "row 3 after row 2 (2001Q4) holds \"Total\""},
      {textRows({"2001Q3", "", "2002Q1"}), "row 2 after row 1 (2001Q3) has no date"},
      {numberRows({2001, kSystemMissing}), "row 2 after row 1 (2001) has no date"}};
  for (const auto& [dataset, part] : table) {
    EXPECT_THAT(faultOf<DataError>([&, &rows = dataset] { labelsOf(rows); }), HasSubstr(part));
  }
  for (const Dataset& dataset : {textRows({"a", "b"}), numberRows({1, 2, 3}), numberRows({200113, 200114})}) {
    EXPECT_THAT(faultOf<UsageError>([&] { labelsOf(dataset); }), HasSubstr("holds no dates (row 1: "));
  }
}

DatesRequest with(DatesRequest request, bool sort, bool fillGaps) {
  request.sort = sort;
  request.fillGaps = fillGaps;
  return request;
}

TEST(RowOrder, SortPutsEveryColumnInTheOrderOfTheDates) {
  Dataset dataset = textRows({"2001Q4", "2001Q2", "2001Q3"});
  addNumbers(dataset, "x", {4, 2, 3});
  const Session session = sessionWith(dataset, with(byColumn("date"), true, false));
  EXPECT_THAT(session.dataset.columns[0].texts, ElementsAre("2001Q2", "2001Q3", "2001Q4"));
  EXPECT_THAT(session.dataset.columns[1].numbers, ElementsAre(2, 3, 4));
  EXPECT_THAT(faultOf<UsageError>([&] {
                sessionWith(dataset, with(startAt({{Unit::year, 2000}}), true, false));
              }),
              HasSubstr("'start' counts the rows as they stand"));
}

TEST(RowOrder, MissingPeriodsBecomeRowsWithoutValues) {
  Dataset dataset = rows(3);
  addNumbers(dataset, "year", {2001, 2001, 2002});
  addNumbers(dataset, "quarter", {1, 2, 1});
  addNumbers(dataset, "x", {1, 2, 5});
  const DatesRequest request = byVariables({{Unit::year, "year"}, {Unit::quarter, "quarter"}});
  const Session session = sessionWith(dataset, with(request, false, true));
  EXPECT_EQ(session.dataset.rowCount, 5u);
  EXPECT_THAT(session.dataset.columns[0].numbers, ElementsAre(2001, 2001, 2001, 2001, 2002));
  EXPECT_THAT(session.dataset.columns[1].numbers, ElementsAre(1, 2, 3, 4, 1));
  EXPECT_THAT(session.dataset.columns[2].numbers, ElementsAre(1, 2, kSystemMissing, kSystemMissing, 5));
  EXPECT_THAT(labelsOf(textRows({"2001", "2002", "2004"}), with(byColumn("date"), false, true)),
              ElementsAre("2001", "2002", "2003", "2004"));
  for (const std::vector<std::string>& faulty :
       {std::vector<std::string>{"2001", "2002", "2002"}, {"2002", "2001", "2003"}, {"2001", "2002", "2900"}}) {
    EXPECT_NE(faultOf<DataError>([&] { labelsOf(textRows(faulty), with(byColumn("date"), false, true)); }), "");
  }
}

TEST(BusinessDays, AreCountedFromMondayToFriday) {
  const std::vector<std::string> days{"2024-01-04", "2024-01-05", "2024-01-08", "2024-01-09", "2024-01-10"};
  const Session session = sessionWith(datedRows(days), byColumn("date"));
  EXPECT_EQ(session.dataset.columns.back().texts, days);
  const CaseCalendar calendar = caseCalendar(session.dataset, session.trends).value();
  ASSERT_TRUE(calendar.businessDays);
  for (std::int64_t offset = -20; offset < 20; ++offset) {
    EXPECT_EQ(calendar.caseOffset(*calendar.period(offset)), offset);
    EXPECT_EQ(calendar.caseOffset(*calendar.period(offset), true), offset);
  }
  EXPECT_EQ(periodLabel(*calendar.period(7)), "2024-01-15");
  const Period saturday = *Period::of(Unit::day, std::vector<std::int64_t>{2024, 1, 13});
  EXPECT_EQ(calendar.caseOffset(saturday), 6);
  EXPECT_EQ(calendar.caseOffset(saturday, true), 7);
  const std::vector<std::string> holiday{"2024-01-04", "2024-01-05", "2024-01-08", "2024-01-10", "2024-01-11"};
  EXPECT_THAT(labelsOf(datedRows(holiday), with(byColumn("date"), false, true)),
              ElementsAre("2024-01-04", "2024-01-05", "2024-01-08", "2024-01-09", "2024-01-10", "2024-01-11"));
  DatesRequest declared = byColumn("date");
  for (const std::vector<std::string>& words : {std::vector<std::string>{"gaps"}, {"2024-01-09", "2024-01-13"}}) {
    declared.holidays = words;
    EXPECT_EQ(labelsOf(datedRows(holiday), declared), holiday);
  }
  // Also before the first row, after the last one, in a row, and beside weekends.
  declared.holidays = {"gaps", "2024-01-12", "2024-01-15", "2023-12-29", "2024-01-01"};
  const Session skipping = sessionWith(datedRows(holiday), declared);
  const CaseCalendar open = caseCalendar(skipping.dataset, skipping.trends).value();
  EXPECT_EQ(periodLabel(*open.period(5)), "2024-01-16");
  EXPECT_EQ(periodLabel(*open.period(-3)), "2023-12-28");
  for (std::int64_t offset = -20; offset < 20; ++offset) EXPECT_EQ(open.caseOffset(*open.period(offset)), offset);
  EXPECT_EQ(open.caseOffset(*Period::of(Unit::day, std::vector<std::int64_t>{2024, 1, 15})), 4);
  EXPECT_EQ(open.caseOffset(*Period::of(Unit::day, std::vector<std::int64_t>{2024, 1, 12}), true), 5);
  declared.holidays = {"2024-01-08"};
  EXPECT_THAT(faultOf<DataError>([&] { labelsOf(datedRows(days), declared); }), HasSubstr("there is a row for it"));
  declared.holidays = {"Easter"};
  EXPECT_THAT(faultOf<UsageError>([&] { labelsOf(datedRows(days), declared); }), HasSubstr("\"Easter\" is no day"));
  declared.holidays = {"gaps"};  // three weeks without a row are none
  EXPECT_THAT(faultOf<UsageError>([&] {
                labelsOf(textRows({"2001", "2002"}), declared);
              }),
              HasSubstr("no business days"));
  const std::vector<std::string> closed{"2024-01-04", "2024-01-05", "2024-01-08", "2024-01-09", "2024-01-31",
                                        "2024-02-01", "2024-02-02", "2024-02-05", "2024-02-06"};
  EXPECT_THAT(faultOf<DataError>([&] { labelsOf(datedRows(closed), declared); }),
              AllOf(HasSubstr("2024-01-10 to 2024-01-30 are missing. Give --fill-gaps"), Not(HasSubstr("holidays"))));
  EXPECT_FALSE(
      sessionWith(datedRows({"2024-01-01", "2024-01-02", "2024-01-03", "2024-01-04", "2024-01-05"}), byColumn("date"))
          .trends.businessDays);
}

}  // namespace
}  // namespace workbench
