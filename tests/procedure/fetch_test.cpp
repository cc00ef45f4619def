#include "data/fetch.h"

#include <cmath>
#include <limits>

#include "data/data_access_chain.h"
#include "tests/procedure/procedure_fixture.h"

namespace varmodel {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

class FetchTest : public ProcedureTest {
 protected:
  FetchOutcome fetch(const std::vector<std::int32_t>& indexes, const std::string& userMissing = "EXCLUDE") {
    ProcedureDataSource dataSource;
    return fetchSeries(dataSource, indexes, userMissing, matrix);
  }
  SeriesMatrix matrix;
};

TEST_F(FetchTest, DropsEveryCaseWithAMissingValueInAListedVariableOnly) {
  number("a", {1.0, 2.0, kSystemMissing, 4.0, 5.0, -0.0});
  number("b", {10.0, kNan, 30.0, kInfinity, 5e-324, 0.0});
  number("unlisted", {kSystemMissing, 0, 0, 0, 0, 0});
  const FetchOutcome outcome = fetch({1, 0});
  EXPECT_TRUE(outcome.succeeded);
  EXPECT_EQ(outcome.deliveredCases, 6);
  EXPECT_THAT(outcome.keptCaseOffsets, ElementsAre(0, 3, 4, 5));
  EXPECT_THAT(matrix, ElementsAre(ElementsAre(10.0, kInfinity, 5e-324, 0.0), ElementsAre(1.0, 4.0, 5.0, 0.0)));
  EXPECT_THAT(out.lines(),
              ElementsAre("VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for 2 variables",
                          "VARSubCommands::fetchDataFromActiveDataSet - Completed with status: SUCCESS"));
}

TEST_F(FetchTest, SkipsIndexesThatAreNoColumns) {
  number("a", {1.0, 2.0});
  number("b", {3.0, 4.0});
  fetch({-1, 0, 2, 1});
  EXPECT_THAT(matrix, ElementsAre(ElementsAre(1.0, 2.0), ElementsAre(3.0, 4.0)));
}

TEST_F(FetchTest, AppendsToWhatTheMatrixHolds) {
  number("a", {1.0, 2.0});
  matrix = {{0.5}};
  fetch({0});
  EXPECT_THAT(matrix, ElementsAre(ElementsAre(0.5, 1.0, 2.0)));
}

TEST_F(FetchTest, ADatasetWithoutCasesFailsAndOneWithoutCompleteCasesDoesNot) {
  number("a", {});
  EXPECT_FALSE(fetch({0}).succeeded);
  EXPECT_THAT(matrix, IsEmpty());
  EXPECT_EQ(out.lines().back(), "VARSubCommands::fetchDataFromActiveDataSet - Completed with status: FAILURE");

  session.dataset.columns[0].numbers = {kSystemMissing, kNan};
  session.dataset.rowCount = 2;
  const FetchOutcome outcome = fetch({0});
  EXPECT_TRUE(outcome.succeeded);
  EXPECT_EQ(outcome.deliveredCases, 2);
  EXPECT_THAT(outcome.keptCaseOffsets, IsEmpty());
  EXPECT_THAT(matrix, ElementsAre(IsEmpty()));
}

TEST_F(FetchTest, OnlyTheExactTextIncludeKeepsUserMissingValues) {
  number("a", {1.0, -9.0, 3.0}).userMissing = {-9.0};
  fetch({0}, "INCLUDE");
  EXPECT_THAT(matrix, ElementsAre(ElementsAre(1.0, -9.0, 3.0)));
  for (const std::string other : {"EXCLUDE", "include", ""}) {
    matrix.clear();
    fetch({0}, other);
    EXPECT_THAT(matrix, ElementsAre(ElementsAre(1.0, 3.0))) << other;
  }
}

TEST_F(FetchTest, AFinishedChainIsNotBuiltAgain) {
  number("a", {1.0});
  ProcedureDataSource dataSource;
  DataAccessChain chain;
  const std::vector<std::int32_t> indexes = {0};
  const AlgoDataAccess* access = buildDataAccessChain(chain, indexes, dataSource, true);
  ASSERT_NE(access, nullptr);
  const ACAProcDataSourceIter* iterator = chain.iterator.get();
  EXPECT_EQ(buildDataAccessChain(chain, indexes, dataSource, false), access);
  EXPECT_EQ(chain.iterator.get(), iterator);
}

}  // namespace
}  // namespace varmodel
