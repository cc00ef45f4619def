#include "host/dates.h"

#include <gmock/gmock.h>

#include "dates_fixture.h"

namespace workbench {
namespace {

using testing::ElementsAre;

// A running call: the host classes find the dated session.
class HostDates : public testing::Test {
 protected:
  TSXDateSpec specification(Dataset dataset, const DatesRequest& request) {
    session_.dataset = std::move(dataset);
    defineDates(session_.dataset, request, session_.trends);
    return TfoDateHandler(dataSource_, nullptr, 0).GetCurrDateSpec();
  }
  std::string label(long offset, const TSXDateSpec& specification) {
    return TfoDateHandler(dataSource_, nullptr, 0).GetDateLabel(offset, specification);
  }

  Session session_;
  SessionScope scope_{session_};
  ProcedureDataSource dataSource_;
};

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
  ASSERT_TRUE(tuple.SetIndexes({2024, 2, 29, 23, 20}));
  EXPECT_EQ(tuple.ClosestCaseOffset(false), -1);
  EXPECT_EQ(tuple.ClosestCaseOffset(true), 0);
  for (const std::vector<unsigned>& wrong : {std::vector<unsigned>{2024}, {2024, 2, 30, 0, 0}, {2024, 2, 1, 0, 0, 0}}) {
    EXPECT_FALSE(tuple.SetIndexes(wrong));
    EXPECT_THAT(tuple.GetIndexes(), ElementsAre(2024u, 2u, 29u, 23u, 20u));
  }
}

TEST_F(HostDates, WithoutDatesNothingIsAPeriod) {
  const TSXDateSpec spec = TfoDateHandler(dataSource_, nullptr, 0).GetCurrDateSpec();
  EXPECT_EQ(spec.PeriodCount(), 0);
  EXPECT_FALSE(TSXDateSpec::TSXIndexTuple(spec).SetIndexes({}));
  EXPECT_EQ(label(4, spec), "5");
}

TEST(VEXAIndexOrigin, IsTheFirstValueOfAComponent) {
  std::vector<unsigned> origins;
  for (int code = 2; code <= 10; ++code) origins.push_back(TfoDateHandler::VEXAIndexOrigin(PeriodType{code}));
  EXPECT_THAT(origins, ElementsAre(1u, 1u, 1u, 1u, 1u, 0u, 0u, 0u, 1u));
}

}  // namespace
}  // namespace workbench
