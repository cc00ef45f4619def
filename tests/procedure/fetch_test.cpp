#include "procedures/common/fetch.h"

#include <limits>

#include "tests/procedure/procedure_fixture.h"

namespace procedures {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr OperationNames kNames = {"Reader", "readSeries", "", "", ""};

class FetchTest : public varmodel::ProcedureTest {
 protected:
  void SetUp() override {
    number("a", {1.0, 2.0, kSystemMissing, 4.0, 5.0, -0.0});
    number("b", {10.0, kNan, 30.0, kInfinity, 5e-324, 0.0});
    number("unlisted", {kSystemMissing, 0, 0, 0, 0, 0});
  }
  FetchOutcome fetch(CaseDeletion deletion = CaseDeletion::listwise) {
    matrix.clear();
    const std::vector<std::int32_t> indexes = {1, 0};
    const auto build = [&](DataAccessChain& chain) { return buildDataAccessChain(chain, indexes, dataSource, {}); };
    return fetchSeries(kNames, indexes.size(), build, matrix, deletion);
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
  EXPECT_THAT(fetch(CaseDeletion::none).keptCaseOffsets, ElementsAre(0, 1, 2, 3, 4, 5));
  EXPECT_EQ(matrix[1][2], kSystemMissing);
  EXPECT_EQ(matrix[0][2], 30.0);
}

}  // namespace
}  // namespace procedures
