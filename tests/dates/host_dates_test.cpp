#include "host/dates.h"

#include <gmock/gmock.h>

#include "dates_fixture.h"

namespace workbench {
namespace {

using testing::ElementsAre;

// A running call: the host classes find the dated session.
class HostDates : public testing::Test {
 protected:
  HostDates() : scope_(session_) {}

  TSXDateSpec specification(Dataset dataset, const DatesRequest& request) {
    session_.dataset = std::move(dataset);
    defineDates(session_.dataset, request, session_.trends);
    return TfoDateHandler(dataSource_, nullptr, 0).GetCurrDateSpec();
  }
  std::string label(long offset, const TSXDateSpec& specification) {
    return TfoDateHandler(dataSource_, nullptr, 0).GetDateLabel(offset, specification);
  }

 private:
  Session session_;
  SessionScope scope_;
  ProcedureDataSource dataSource_;
};

TEST_F(HostDates, PeriodsAreTheDateVariablesUnits) {
  const TSXDateSpec daily = specification(rows(3), startAt({{Unit::year, 1959}, {Unit::month, 1}, {Unit::day, 31}}));
  ASSERT_EQ(daily.PeriodCount(), 3);
  std::vector<int> codes;
  PeriodType unit{};
  for (int i = 0; daily.GetPeriod(i, unit); ++i) codes.push_back(unit);
  EXPECT_THAT(codes, ElementsAre(2, 4, 6));
  EXPECT_FALSE(daily.GetPeriod(-1, unit));
  EXPECT_THAT(daily.IndexTuple(1).GetIndexes(), ElementsAre(1959u, 2u, 1u));
}

TEST_F(HostDates, LabelsAndOffsetsGoOnAfterTheLastCase) {
  const TSXDateSpec quarterly = specification(rows(203), startAt({{Unit::year, 1959}, {Unit::quarter, 1}}));
  EXPECT_EQ(label(202, quarterly), "2009Q3");
  EXPECT_EQ(label(203, quarterly), "2009Q4");
  EXPECT_EQ(label(210, quarterly), "2011Q3");
  TSXDateSpec::TSXIndexTuple tuple(quarterly);
  ASSERT_TRUE(tuple.SetIndexes({2011, 3}));
  EXPECT_EQ(tuple.ClosestCaseOffset(false), 210);
  for (const std::vector<unsigned>& wrong : {std::vector<unsigned>{2011}, {2011, 5}, {2011, 0}, {0, 1}, {2011, 1, 1}}) {
    EXPECT_FALSE(tuple.SetIndexes(wrong));
    EXPECT_THAT(tuple.GetIndexes(), ElementsAre(2011u, 3u));
  }
  ASSERT_TRUE(tuple.SetIndexes({1958, 4}));
  EXPECT_EQ(tuple.ClosestCaseOffset(false), -1);
}

TEST_F(HostDates, WeeksAreYearAndIsoWeekOverA53WeekYear) {
  const TSXDateSpec weekly = specification(rows(2), startAt({{Unit::year, 2020}, {Unit::week, 52}}));
  EXPECT_EQ(label(1, weekly), "2020W53");
  EXPECT_EQ(label(2, weekly), "2021W01");
  TSXDateSpec::TSXIndexTuple tuple(weekly);
  EXPECT_FALSE(tuple.SetIndexes({2021, 53}));
  ASSERT_TRUE(tuple.SetIndexes({2021, 52}));
  EXPECT_EQ(tuple.ClosestCaseOffset(false), 53);
}

TEST_F(HostDates, SteppedCasesRoundTripAndFallBetween) {
  const TSXDateSpec spec = specification(
      datedRows({"2024-02-29 23:30", "2024-02-29 23:45", "2024-03-01 00:00", "2024-03-01 00:15"}), byColumn("date"));
  TSXDateSpec::TSXIndexTuple tuple(spec);
  for (long offset = -3000; offset < 3000; ++offset) {
    ASSERT_TRUE(tuple.SetIndexes(spec.IndexTuple(offset).GetIndexes()));
    ASSERT_EQ(tuple.ClosestCaseOffset(false), offset);
  }
  EXPECT_EQ(label(4, spec), "2024-03-01 00:30");
  ASSERT_TRUE(tuple.SetIndexes({2024, 3, 1, 0, 40}));
  EXPECT_EQ(tuple.ClosestCaseOffset(false), 4);
  EXPECT_EQ(tuple.ClosestCaseOffset(true), 5);
}

TEST_F(HostDates, MovingTheFirstCaseKeepsTheOrigin) {
  TSXDateSpec spec = specification(rows(4), startAt({{Unit::year, 2000}, {Unit::month, 11}}));
  const TSXDateSpec original = spec;
  EXPECT_EQ(spec.VirtualCaseOffset(2), 2);
  ASSERT_TRUE(spec.SetFirstCaseIndex(spec.IndexTuple(3)));
  EXPECT_THAT(spec.IndexTuple(0).GetIndexes(), ElementsAre(2001u, 2u));
  EXPECT_EQ(spec.VirtualCaseOffset(2), 5);
  EXPECT_EQ(label(0, original), "2000M11");
}

TEST_F(HostDates, WithoutDatesNothingIsAPeriod) {
  ProcedureDataSource source;
  const TSXDateSpec spec = TfoDateHandler(source, nullptr, 0).GetCurrDateSpec();
  EXPECT_EQ(spec.PeriodCount(), 0);
  TSXDateSpec::TSXIndexTuple tuple(spec);
  EXPECT_FALSE(tuple.SetIndexes({}));
  EXPECT_FALSE(TSXDateSpec().SetFirstCaseIndex(tuple));
  EXPECT_EQ(label(4, spec), "5");
}

TEST(VEXAIndexOrigin, IsTheFirstValueOfAComponent) {
  std::vector<unsigned> origins;
  for (int code = 2; code <= 10; ++code) origins.push_back(TfoDateHandler::VEXAIndexOrigin(PeriodType{code}));
  EXPECT_THAT(origins, ElementsAre(1u, 1u, 1u, 1u, 1u, 0u, 0u, 0u, 1u));
}

}  // namespace
}  // namespace workbench
