#include "engine/dynamics/forecast_recursion.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

TEST(RecursiveForecasts, FeedEachStepIntoTheNextAndLeaveExogenousTermsOut) {
  std::ostringstream trace;
  // a := 1 + 2 a - b, b := a + b / 2, from (3, 2).
  const auto two = recursiveForecasts({{1, 2, -1}, {0, 1, 0.5}}, {{9, 3}, {9, 2}}, 1, 3, trace);
  ASSERT_TRUE(two);
  EXPECT_THAT(*two, ElementsAre(ElementsAre(5, 7, 8), ElementsAre(4, 7, 10.5)));
  // y = 10 y(-1) + 100 y(-2), the last coefficient exogenous; history 7 (ignored), 2, 3.
  const auto lagged = recursiveForecasts({{0, 10, 100, 1e9}}, {{7, 2, 3}}, 2, 2, trace);
  ASSERT_TRUE(lagged);
  EXPECT_THAT(*lagged, ElementsAre(ElementsAre(230, 2600)));
  EXPECT_EQ(trace.str(), "");
}

}  // namespace
}  // namespace engine
