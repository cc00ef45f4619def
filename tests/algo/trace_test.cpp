// What the estimation writes to the error stream beside its results.

#include <gtest/gtest.h>

#include "tests/algo/engine_run.h"
#include "tests/engine/numeric_support.h"

namespace varmodel {
namespace {

// Noise of which AIC makes lag 4, BIC and HQIC lag 2 of 1..4.
EngineRun disputed() {
  return {{engine::noise(11, 40), engine::noise(1011, 40)}, 1, 4};
}

TEST(EstimationTrace, CriteriaDisagreeWhereNoTwoOfThemAgree) {
  const std::string disagree = "Warning: VARAlgo::selectOptimalLag - The criteria disagree (AIC chose lag 4, ";
  const std::string decided = "): the largest log-likelihood decided for lag 4.\n";
  const struct {
    bool aic, bic, hqic;
    std::string text;
  } cases[] = {{true, true, false, disagree + "BIC chose lag 2" + decided},
               {true, false, true, disagree + "HQIC chose lag 2" + decided},
               {false, true, true, ""},
               {true, true, true, ""},
               {true, false, false, ""},
               {false, false, false, ""}};
  for (const auto& one : cases) {
    EngineRun run = disputed();
    run.settings.useAic = one.aic;
    run.settings.useBic = one.bic;
    run.settings.useHqic = one.hqic;
    ASSERT_EQ(run.start(), 0);
    const auto place = run.trace.find("Warning: VARAlgo::selectOptimalLag");
    EXPECT_EQ(place == std::string::npos ? "" : run.trace.substr(place, run.trace.find('\n', place) + 1 - place),
              one.text);
  }
}

TEST(EstimationTrace, WithoutDataEveryStepSaysSo) {
  EngineRun run({}, 1, 1);
  EXPECT_EQ(run.start(), 1);
  EXPECT_EQ(run.trace,
            "VARAlgo::start - Beginning algorithm execution\n"
            "VARAlgo::estimateVARWithLags - ERROR: No endogenous data available\n"
            "VARAlgo::computeDescriptiveStats - Computing descriptive statistics\n"
            "VARAlgo::computeDescriptiveStats - ERROR: No endogenous data\n");
}

TEST(AdjustedRSquare, CountsTheWholeSeriesAndTheLagTermsAlone) {
  EngineRun run(engine::noiseSeries(2, 50), 3, 3);
  run.settings.exogenousSeries = {engine::noise(7, 50)};
  run.settings.showRSquare = run.settings.showAdjRSquare = true;
  ASSERT_EQ(run.start(), 0);
  const EquationResult& result = run.results[0];
  EXPECT_NEAR(result.adjustedRSquare, 1 - (1 - result.rSquare) * 49 / (50 - 3 * 2 - 1), engine::kRounding);
}

}  // namespace
}  // namespace varmodel
