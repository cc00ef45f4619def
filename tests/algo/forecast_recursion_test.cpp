#include "algo/forecast_recursion.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/algo/numeric_support.h"

namespace varmodel {
namespace {

using ::testing::ElementsAre;

TEST(RecursiveForecasts, FeedEachStepIntoTheNext) {
  std::ostringstream trace;
  // a := 1 + 2 a - b, b := a + b / 2, from (3, 2).
  const auto forecasts = recursiveForecasts({{1, 2, -1}, {0, 1, 0.5}}, {{9, 3}, {9, 2}}, 1, 3, trace);
  ASSERT_TRUE(forecasts);
  EXPECT_THAT(*forecasts, ElementsAre(ElementsAre(5, 7, 8), ElementsAre(4, 7, 10.5)));
  EXPECT_EQ(trace.str(), "");
}

TEST(RecursiveForecasts, LagsRunFromTheNewestBackAndExogenousTermsAreLeftOut) {
  std::ostringstream trace;
  // y = 10 y(-1) + 100 y(-2), the last coefficient exogenous; history 7 (ignored), 2, 3.
  const auto forecasts = recursiveForecasts({{0, 10, 100, 1e9}}, {{7, 2, 3}}, 2, 2, trace);
  ASSERT_TRUE(forecasts);
  EXPECT_THAT(*forecasts, ElementsAre(ElementsAre(230, 2600)));
}

TEST(RecursiveForecasts, MissingCoefficientsAreTracedAndAddNothing) {
  std::ostringstream trace;
  const auto forecasts = recursiveForecasts({{1, 2, 3}, {5, 1, 1, 1, 1}}, {{1, 1}, {1, 1}}, 2, 1, trace);
  ASSERT_TRUE(forecasts);
  EXPECT_THAT(*forecasts, ElementsAre(ElementsAre(6), ElementsAre(9)));
  EXPECT_EQ(trace.str(),
            "      WARNING: Missing coefficient for lag 2 variable 0 (coeffIdx=3, coeffs.size()=3)\n"
            "      WARNING: Missing coefficient for lag 2 variable 1 (coeffIdx=4, coeffs.size()=3)\n");
  EXPECT_FALSE(recursiveForecasts({{1, 2}}, {{1}, {1}}, 1, 1, trace));
}

}  // namespace
}  // namespace varmodel
