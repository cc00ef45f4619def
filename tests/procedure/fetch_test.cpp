#include "procedures/common/fetch.h"

#include <algorithm>
#include <limits>

#include "tests/procedure/procedure_fixture.h"

namespace procedures {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr OperationNames kNames = {"Reader", "readSeries", "", "", ""};

// A pass in which the host withholds the cases with these offsets.
class GappyPass : public ACAProcDataSourceIter {
 public:
  GappyPass(ACAInputAdapter& adapter, std::vector<int> withheld)
      : ACAProcDataSourceIter(adapter, true), withheld_(std::move(withheld)) {}
  const MCCommon_940::Record* Next() override {
    const MCCommon_940::Record* record = ACAProcDataSourceIter::Next();
    return std::count(withheld_.begin(), withheld_.end(), next_++) > 0 ? nullptr : record;
  }

 private:
  std::vector<int> withheld_;
  int next_ = 0;
};

class FetchTest : public varmodel::ProcedureTest {
 protected:
  void SetUp() override {
    number("a", {1.0, 2.0, kSystemMissing, 4.0, 5.0, -0.0});
    number("b", {10.0, kNan, 30.0, kInfinity, 5e-324, 0.0});
    number("unlisted", {kSystemMissing, 0, 0, 0, 0, 0});
  }
  FetchOutcome fetch(IncompleteCases incomplete = IncompleteCases::dropped, const std::vector<int>& withheld = {}) {
    matrix.clear();
    const std::vector<std::int32_t> indexes = {1, 0};
    const auto build = [&](DataAccessChain& chain) {
      buildDataAccessChain(chain, indexes, dataSource, {});
      chain.iterator = std::make_unique<GappyPass>(*chain.adapter, withheld);
      chain.access = std::make_unique<AlgoDataAccess>(*chain.iterator);
      return chain.access.get();
    };
    return fetchSeries(kNames, indexes.size(), build, matrix, incomplete);
  }

  ProcedureDataSource dataSource;
  SeriesMatrix matrix;
};

TEST_F(FetchTest, DropsEveryCaseWithAMissingValueInAListedVariableOnly) {
  const FetchOutcome outcome = fetch();
  EXPECT_TRUE(outcome.succeeded);
  EXPECT_EQ(outcome.deliveredCases, 6);
  EXPECT_THAT(outcome.keptCaseOffsets, ElementsAre(0, 3, 4, 5));
  EXPECT_THAT(matrix, ElementsAre(ElementsAre(10.0, kInfinity, 5e-324, 0.0), ElementsAre(1.0, 4.0, 5.0, 0.0)));
  EXPECT_THAT(out.lines(), ElementsAre("Reader::readSeries - Starting data fetch for 2 variables",
                                       "Reader::readSeries - Completed with status: SUCCESS"));

  session.dataset.columns[0].numbers.assign(6, kSystemMissing);
  const FetchOutcome none = fetch();
  EXPECT_TRUE(none.succeeded);  // without a complete case, it is for the engine to refuse
  EXPECT_EQ(none.deliveredCases, 6);
  EXPECT_THAT(none.keptCaseOffsets, IsEmpty());
  EXPECT_THAT(matrix, ElementsAre(IsEmpty(), IsEmpty()));
}

TEST_F(FetchTest, KeepsIncompleteCasesInTheirPlaceWhenAsked) {
  EXPECT_THAT(fetch(IncompleteCases::kept).keptCaseOffsets, ElementsAre(0, 1, 2, 3, 4, 5));
  EXPECT_EQ(matrix[1][2], kSystemMissing);
  EXPECT_EQ(matrix[0][2], 30.0);
}

TEST_F(FetchTest, ANullRecordIsNoCase) {
  const FetchOutcome outcome = fetch(IncompleteCases::dropped, {0, 3});
  EXPECT_EQ(outcome.deliveredCases, 4);
  EXPECT_THAT(outcome.keptCaseOffsets, ElementsAre(2, 3));
  EXPECT_THAT(matrix[1], ElementsAre(5.0, -0.0));
}

}  // namespace
}  // namespace procedures
