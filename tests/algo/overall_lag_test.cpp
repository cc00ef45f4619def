#include "procedures/varmodel/algo/overall_lag.h"

#include <gmock/gmock.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

namespace varmodel {
namespace {

using ::testing::ElementsAre;

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
  const std::vector<double> infinite(3, std::numeric_limits<double>::infinity());
  const LagChoice choice = chooseLag(lags, std::vector<double>{2, 1, 1}, infinite, infinite,
                                     std::vector<double>{0, 0, 0}, {.aic = true, .bic = false, .hqic = false});
  EXPECT_EQ(choice.aic, 4);
  EXPECT_EQ(choice.hqic, 3);
}

TEST(ChooseLag, RefusesListsThatAreEmptyOrUneven) {
  const std::vector<std::int32_t> lags = {1, 2};
  const std::vector<double> two = {1, 2};
  const std::vector<double> one = {1};
  const auto said = [&](const std::vector<double>& aic, const std::vector<double>& bic,
                        const std::vector<double>& hqic) -> std::string {
    try {
      chooseLag(lags, aic, bic, hqic, two, {});
    } catch (const std::invalid_argument& error) {
      return error.what();
    }
    return "";
  };
  EXPECT_EQ(said(two, two, two), "");
  for (const auto& [aic, bic, hqic] : {std::tuple(one, two, two), {two, one, two}, {two, two, one}}) {
    EXPECT_EQ(said(aic, bic, hqic), "All input vectors must have the same size.");
  }
  EXPECT_EQ(said({}, two, two), "Input vectors must not be empty.");
}

}  // namespace
}  // namespace varmodel
