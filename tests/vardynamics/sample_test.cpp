// Which rows a model is fitted to, what is future, and which regressors they give.

#include "procedures/vardynamics/data/sample.h"

#include <gmock/gmock.h>

#include <cmath>

#include "procedures/vardynamics/data/horizon.h"
#include "procedures/vardynamics/data/known_columns.h"

namespace vardynamics {
namespace {

using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::NanSensitiveDoubleEq;
using testing::Pointwise;

const double kFree = std::nan("");

auto values(std::vector<double> wanted) {
  return Pointwise(NanSensitiveDoubleEq(), std::move(wanted));
}

template <typename Fault>
Fault faultOf(const CaseRows& rows) {
  return std::get<Fault>(std::get<SampleFault>(cutSample(rows, {})));
}

// One incomplete row at the start; after the last complete one a row of each kind.
CaseRows raggedRows() {
  return {.endogenous = {{kFree, 1, 2, 3, 4, 5, kFree, kFree}, {9, 8, 7, 6, 5, kFree, kFree, kFree}},
          .exogenous = {{10, 11, 12, 13, 14, 15, 16, kFree}}};
}

TEST(Sample, ReachesFromTheFirstToTheLastCompleteRow) {
  const auto sample = std::get<Sample>(cutSample(raggedRows(), {}));
  EXPECT_EQ(sample.cases.first, 1U);
  EXPECT_EQ(sample.cases.last, 4U);
  EXPECT_EQ(sample.leftOutBefore, 1U);
  EXPECT_EQ(sample.leftOutAfter, 3U);
  EXPECT_THAT(sample.endogenous, ElementsAre(ElementsAre(1, 2, 3, 4), ElementsAre(8, 7, 6, 5)));
  EXPECT_THAT(sample.exogenous, ElementsAre(ElementsAre(11, 12, 13, 14)));
  EXPECT_EQ(sample.futureRows(), 0U);
}

TEST(Sample, FutureRowsAreThoseThatAForecastUses) {
  const auto plain = std::get<Sample>(cutSample(raggedRows(), {.forecasts = true}));
  EXPECT_THAT(plain.futureExogenous, ElementsAre(ElementsAre(15, 16)));
  EXPECT_THAT(plain.futureEndogenous, ElementsAre(values({kFree, kFree}), values({kFree, kFree})));
  EXPECT_EQ(plain.leftOutAfter, 1U);
  EXPECT_TRUE(plain.ignoresEndogenous);
  EXPECT_FALSE(holdsCondition(plain, 8));

  const auto conditional = std::get<Sample>(cutSample(raggedRows(), {.forecasts = true, .holdsEndogenous = true}));
  EXPECT_THAT(conditional.futureEndogenous, ElementsAre(values({5, kFree}), values({kFree, kFree})));
  EXPECT_FALSE(conditional.ignoresEndogenous);
  EXPECT_TRUE(holdsCondition(conditional, 1));

  CaseRows without = raggedRows();
  without.exogenous.clear();
  EXPECT_EQ(std::get<Sample>(cutSample(without, {.forecasts = true})).futureRows(), 0U);
  EXPECT_EQ(std::get<Sample>(cutSample(without, {.forecasts = true, .holdsEndogenous = true})).futureRows(), 1U);
}

TEST(Sample, FaultsSayWhere) {
  const CaseRows holes = {.endogenous = {{1, 2, kFree, kFree, 5, 6, 7, 8, 9}, {1, 2, 3, 4, 5, 6, kFree, 8, 9}}};
  const auto gap = faultOf<SampleGap>(holes);
  ASSERT_EQ(gap.gaps.size(), 2U);
  EXPECT_EQ(gap.gaps[0].first, 2U);
  EXPECT_EQ(gap.gaps[0].last, 3U);
  EXPECT_EQ(gap.gaps[1].first, 6U);
  EXPECT_EQ(gap.series, 0U);
  EXPECT_EQ(gap.longestRun.first, 7U);  // the later of the three runs of two rows
  EXPECT_EQ(gap.longestRun.last, 8U);

  faultOf<NoCompleteRow>({.endogenous = {{1, kFree}, {kFree, 2}}});
  const auto infinite = faultOf<InfiniteValue>({.endogenous = {{1, 2}, {1, 2}}, .exogenous = {{1, INFINITY}}});
  EXPECT_EQ(infinite.series, 2U);
  EXPECT_EQ(infinite.caseOffset, 1U);
}

TEST(Horizon, TakesTheFirstThatIsThere) {
  Sample sample{.cases = {0, 9}, .futureEndogenous = {{kFree, 1, kFree}}, .futureExogenous = {{1, 2, 3}}};
  EXPECT_EQ(forecastHorizon({.periods = 5, .predictOffset = 20, .cycle = 4}, sample), 5U);
  EXPECT_EQ(forecastHorizon({.predictOffset = 20, .cycle = 4}, sample), 11U);
  EXPECT_EQ(forecastHorizon({.predictOffset = 9, .cycle = 4}, sample), 3U);  // not after the last row
  sample.futureEndogenous = {{}};
  EXPECT_EQ(forecastHorizon({.cycle = 4}, sample), 8U);
  EXPECT_EQ(forecastHorizon({.cycle = 12}, sample), 24U);
  EXPECT_EQ(forecastHorizon({}, sample), 8U);
}

TEST(Horizon, NeedsEveryFutureExogenousValue) {
  const Sample sample{.cases = {0, 9}, .futureExogenous = {{1, 2, 3}, {1, kFree, 3}}};
  EXPECT_FALSE(firstMissingFutureValue(sample, 1));
  const auto missing = firstMissingFutureValue(sample, 3);
  ASSERT_TRUE(missing);
  EXPECT_EQ(missing->step, 1U);
  EXPECT_EQ(missing->series, 1U);
  EXPECT_EQ(firstMissingFutureValue({.cases = {0, 9}, .futureExogenous = {{1, 2, 3}}}, 4)->step, 3U);
}

TEST(KnownColumns, AreTrendCentredSeasonsAndLaggedSeries) {
  const Sample sample{.cases = {0, 3},
                      .endogenous = {{1, 2, 3, 4}},
                      .exogenous = {{10, 11, 12, 13}},
                      .futureEndogenous = {{kFree}},
                      .futureExogenous = {{14}}};
  const KnownColumnOptions options{
      .trend = true, .seasons = {.cycle = 3, .ofPeriod = {1, 2, 0, 1, 2, 0}}, .exogenousLags = 1};
  const SeriesList columns = knownColumns(sample, 2, options);
  ASSERT_EQ(columns.size(), 5U);
  constexpr double in = 2.0 / 3.0;
  constexpr double out = -1.0 / 3.0;
  EXPECT_THAT(columns[0], ElementsAre(1, 2, 3, 4, 5, 6));
  EXPECT_THAT(columns[1], Pointwise(testing::DoubleEq(), {out, out, in, out, out, in}));
  EXPECT_THAT(columns[2], Pointwise(testing::DoubleEq(), {in, out, out, in, out, out}));
  EXPECT_THAT(columns[3], values({10, 11, 12, 13, 14, kFree}));
  EXPECT_THAT(columns[4], values({0, 10, 11, 12, 13, 14}));
  EXPECT_THAT(knownColumns(Sample{.cases = {0, 3}}, 2, {}), IsEmpty());
}

}  // namespace
}  // namespace vardynamics
