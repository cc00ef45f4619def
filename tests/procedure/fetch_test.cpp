#include "procedures/varmodel/data/fetch.h"

#include <limits>

#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class FetchTest : public ProcedureTest {};

TEST_F(FetchTest, DropsEveryCaseWithAMissingValueInAListedVariableOnly) {
  number("a", {1.0, 2.0, kSystemMissing, 4.0, 5.0, -0.0});
  number("b", {10.0, kNan, 30.0, kInfinity, 5e-324, 0.0});
  number("unlisted", {kSystemMissing, 0, 0, 0, 0, 0});
  ProcedureDataSource dataSource;
  const std::vector<std::int32_t> indexes = {1, 0};
  SeriesMatrix matrix;
  const FetchOutcome outcome = fetchSeries(dataSource, indexes, "EXCLUDE", matrix);
  EXPECT_TRUE(outcome.succeeded);
  EXPECT_EQ(outcome.deliveredCases, 6);
  EXPECT_THAT(outcome.keptCaseOffsets, ElementsAre(0, 3, 4, 5));
  EXPECT_THAT(matrix, ElementsAre(ElementsAre(10.0, kInfinity, 5e-324, 0.0), ElementsAre(1.0, 4.0, 5.0, 0.0)));

  session.dataset.columns[0].numbers.assign(6, kSystemMissing);
  matrix.clear();
  const FetchOutcome none = fetchSeries(dataSource, indexes, "EXCLUDE", matrix);
  EXPECT_TRUE(none.succeeded);  // without a complete case, it is for the engine to refuse
  EXPECT_EQ(none.deliveredCases, 6);
  EXPECT_THAT(none.keptCaseOffsets, IsEmpty());
  EXPECT_THAT(matrix, ElementsAre(IsEmpty(), IsEmpty()));
}

}  // namespace
}  // namespace varmodel
