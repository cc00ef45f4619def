#include "engine/linear_algebra/column_dependence.h"

#include "engine/linear_algebra/correlations.h"
#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(ColumnDependence, NamesTheFirstColumnThatOthersGive) {
  SeriesList columns = noiseSeries(3, 50);
  EXPECT_FALSE(findDependence(columns, true));
  columns.emplace_back(50);
  for (std::size_t t = 0; t < 50; ++t) columns[3][t] = 7.0 + 1e-6 * (columns[0][t] + columns[2][t]);
  columns.push_back(columns[1]);
  const auto found = findDependence(columns, true);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->column, 3U);
  EXPECT_THAT(found->on, ElementsAre(0, 2));
  EXPECT_FALSE(findDependence(std::span(columns).first(4), false));  // without a constant the level is new
}

TEST(ColumnDependence, AColumnThatDoesNotVaryStandsForTheConstant) {
  SeriesList columns = noiseSeries(1, 20);
  columns.emplace_back(20, 1e7);
  const auto found = findDependence(columns, true);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->column, 1U);
  EXPECT_THAT(found->on, IsEmpty());
  EXPECT_FALSE(findDependence(columns, false));
}

TEST(Correlations, AreTheSameInAnyUnits) {
  Matrix covariance(2, 2);
  covariance(0, 0) = 4e-200;
  covariance(1, 1) = 9e200;
  covariance(0, 1) = covariance(1, 0) = 3.0;
  const Matrix found = correlations(covariance);
  EXPECT_NEAR(found(0, 1), 0.5, kRounding);
  EXPECT_EQ(found(0, 0), 1.0);
}

}  // namespace
}  // namespace engine
