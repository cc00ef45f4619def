#include "engine/regression/lag_selection.h"

#include <gtest/gtest.h>

#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Criteria, FollowTheirFormulas) {
  // det = e, K = 2, n = 100, p = 3 with a constant and one exogenous series: m = 8; 14 parameters without the latter.
  const ModelSize size{.equations = 2, .rows = 100, .regressors = 8, .parameters = 14};
  const double likelihood = logLikelihood(1.0, size);
  const CriterionValues values = criterionValues(likelihood, 1.0, size);
  const double deviance = 1.0 + 2.0 * (std::log(2.0 * M_PI) + 1.0);
  EXPECT_NEAR(likelihood, -50.0 * deviance, 1e-11);
  EXPECT_NEAR(valueOf(Criterion::aic, values), 0.28 + deviance, kRounding * 10);
  EXPECT_NEAR(valueOf(Criterion::bic, values), 0.14 * std::log(100.0) + deviance, kRounding * 10);
  EXPECT_NEAR(valueOf(Criterion::hqic, values), 0.28 * std::log(std::log(100.0)) + deviance, kRounding * 10);
  EXPECT_NEAR(valueOf(Criterion::fpe, values), std::log(108.0 / 92 * 108 / 92 * std::exp(1.0)), kRounding * 10);
}

TEST(Criteria, AreInfiniteWhereUndefined) {
  const auto valuesAt = [](std::int64_t rows, double logDeterminant) {
    const ModelSize size{.equations = 1, .rows = rows, .regressors = 2, .parameters = 2};
    return criterionValues(logLikelihood(logDeterminant, size), logDeterminant, size);
  };
  EXPECT_EQ(valueOf(Criterion::hqic, valuesAt(2, 1.0)), kInfinity);
  EXPECT_EQ(valueOf(Criterion::fpe, valuesAt(2, 1.0)), kInfinity);
  EXPECT_THAT(valuesAt(3, 1.0), ::testing::Each(::testing::Lt(kInfinity)));
  EXPECT_THAT(valuesAt(50, kInfinity), ::testing::Each(kInfinity));
  EXPECT_THAT(valuesAt(0, 1.0), ::testing::Each(kInfinity));
}

TEST(Criteria, TableIsInTheOrderOfTheEnumeration) {
  for (std::size_t i = 0; i < kCriterionCount; ++i) {
    EXPECT_EQ(static_cast<std::size_t>(criterionTable()[i].criterion), i);
  }
  EXPECT_EQ(placeOfSmallest(std::vector<double>{2, 1, 1}), 1u);
}

}  // namespace
}  // namespace engine
