#include "engine/regression/lag_selection.h"

#include <gtest/gtest.h>

#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(InformationCriteria, FollowTheirFormulas) {
  // det = e, K = 2, n = 100, p = 3: LL = -50 - 100 (ln 2 pi + 1), 14 parameters.
  const InformationCriteria result = informationCriteria(std::exp(1.0), 2, 100, 3);
  const double deviance = 1.0 + 2.0 * (std::log(2.0 * M_PI) + 1.0);
  EXPECT_NEAR(result.logLikelihood, -50.0 * deviance, 1e-11);
  EXPECT_NEAR(result.aic, 0.28 + deviance, kRounding * 10);
  EXPECT_NEAR(result.bic, 0.14 * std::log(100.0) + deviance, kRounding * 10);
  EXPECT_NEAR(result.hqic, 0.28 * std::log(std::log(100.0)) + deviance, kRounding * 10);
  // Infinite where undefined.
  EXPECT_EQ(informationCriteria(2.0, 1, 2, 1).hqic, kInfinity);
  EXPECT_TRUE(std::isfinite(informationCriteria(2.0, 1, 3, 1).hqic));
  EXPECT_EQ(informationCriteria(-1.0, 2, 50, 1).logLikelihood, -kInfinity);
  EXPECT_EQ(informationCriteria(-1.0, 2, 50, 1).aic, kInfinity);
}

// Values that put a criterion's minimum at one lag of 1..4.
std::vector<double> smallestAt(std::int32_t lag) {
  std::vector<double> values(4, 5.0);
  values[static_cast<std::size_t>(lag - 1)] = 1.0;
  return values;
}

TEST(ChooseLag, OverallLag) {
  const std::vector<std::int32_t> lags = {1, 2, 3, 4};
  const std::vector<double> likelihoods = {-9.0, -7.0, -8.0, -7.0};  // lag 2, the first of equal maxima
  const struct {
    const char* what;
    CriterionSwitches enabled;
    std::int32_t aic, bic, hqic;  // the lag that each criterion prefers
    std::int32_t expected;
  } cases[] = {
      {"only AIC", {true, false, false}, 3, 1, 4, 3},
      {"only BIC", {false, true, false}, 3, 1, 4, 1},
      {"only HQIC", {false, false, true}, 3, 1, 4, 4},
      {"AIC and BIC agree", {true, true, true}, 3, 3, 1, 3},
      {"AIC and HQIC agree", {true, true, true}, 3, 1, 3, 3},
      {"BIC and HQIC agree", {true, true, true}, 3, 1, 1, 1},
      {"agreement of a disabled criterion does not count", {true, true, false}, 3, 1, 1, 2},
      {"no two agree", {true, true, true}, 4, 3, 1, 2},
      {"none enabled", {false, false, false}, 3, 3, 3, 2},
  };
  for (const auto& one : cases) {
    SCOPED_TRACE(one.what);
    const LagChoice choice =
        chooseLag(lags, smallestAt(one.aic), smallestAt(one.bic), smallestAt(one.hqic), likelihoods, one.enabled);
    EXPECT_EQ(choice.overall, one.expected);
    EXPECT_THAT((std::vector{choice.aic, choice.bic, choice.hqic}), ElementsAre(one.aic, one.bic, one.hqic));
  }
}

TEST(ChooseLag, SmallestLagAmongEqualMinima) {
  const std::vector<std::int32_t> lags = {3, 4, 5};
  const std::vector<double> infinite(3, kInfinity);
  const LagChoice choice = chooseLag(lags, std::vector<double>{2, 1, 1}, infinite, infinite,
                                     std::vector<double>{0, 0, 0}, {.aic = true, .bic = false, .hqic = false});
  EXPECT_EQ(choice.aic, 4);
  EXPECT_EQ(choice.hqic, 3);
}

}  // namespace
}  // namespace engine
