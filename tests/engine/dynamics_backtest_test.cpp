// The back-test equals refitting from scratch; measures and comparisons of forecasts by hand and by identities.

#include "engine/dynamics/backtest.h"
#include "engine/dynamics/forecast_evaluation.h"
#include "engine/dynamics/forecast_limits.h"
#include "engine/dynamics/rolling_regression.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

// The rows first .. last - 1 of every series.
SeriesList rowsOf(const SeriesList& series, std::size_t first, std::size_t last) {
  SeriesList result;
  for (const auto& one : series) {
    result.emplace_back(one.begin() + std::ptrdiff_t(first), one.begin() + std::ptrdiff_t(std::min(last, one.size())));
  }
  return result;
}

void expectClose(const Matrix& seen, const Matrix& wanted) {
  ASSERT_EQ(seen.values.size(), wanted.values.size());
  for (std::size_t i = 0; i < seen.values.size(); ++i) {
    EXPECT_TRUE(closeTo(seen.values[i], wanted.values[i], kReference));
  }
}

class BacktestRefits : public testing::TestWithParam<bool> {};

TEST_P(BacktestRefits, EqualsFittingEveryOriginFromScratch) {
  constexpr std::size_t kHorizon = 3;
  const bool rolling = GetParam();
  for (const SeriesList& series : {growth(), levels()}) {
    const std::size_t length = series[0].size();
    const SeriesList known = {trendColumn(length)};
    const Example model = fitted(series, 2, true, known);
    const KnownTerms trend{2, 1};
    const BacktestOptions options{
        .origins = 5, .horizon = kHorizon, .step = 7, .rolling = rolling, .terms = trend, .ownTerms = 1, .cycle = 4};
    const Backtest seen = backtest(model.fit, model.sample(), options);
    ASSERT_FALSE(seen.error);
    ASSERT_EQ(seen.forecasts.size(), 5u);
    EXPECT_EQ(seen.forecasts.back().origin, length - kHorizon);
    for (std::size_t o = 0; o < 5; ++o) {
      const OriginForecast& one = seen.forecasts[o];
      const std::size_t start = rolling ? 7 * o : 0;
      EXPECT_EQ(one.origin, length - kHorizon - 7 * (4 - o));
      const Example again = fitted(rowsOf(series, start, one.origin), 2, true, rowsOf(known, start, one.origin));
      const SeriesList future = rowsOf(known, start, one.origin + kHorizon);
      const auto wanted = analyticForecast(again.fit, {again.series, future}, kHorizon, &trend).value();
      expectClose(one.values, wanted.values);
      expectClose(one.standardErrors, wanted.standardErrors);
      EXPECT_EQ(one.degreesOfFreedom, wanted.degreesOfFreedom);
      for (std::size_t i = 0; i < 3; ++i) {
        const Example alone = fitted({again.series[i]}, 2, true, again.known);
        const Matrix own = forecastPath(alone.fit, {alone.series, future}, alone.series[0].size(), kHorizon).values;
        for (std::size_t h = 0; h < kHorizon; ++h) {
          EXPECT_TRUE(closeTo(one.autoregression(h, i), own(h, 0), kReference));
          EXPECT_EQ(one.noChange(h, i), series[i][one.origin - 1]);
          EXPECT_EQ(one.seasonal(h, i), series[i][one.origin - 4 + h]);
        }
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Windows, BacktestRefits, testing::Values(false, true));

// A row that decides a coefficient alone cannot be dropped by updating: what is left would be rounding.
TEST(Backtest, SumsAgainWhereARowWasIndispensable) {
  constexpr std::size_t kLast = 190;
  for (const double size : {10.0, 1e4, 1e8}) {
    std::vector<double> column = noise(31, 202);
    column[195] = size;
    const Example whole = fitted(growth(), 2, true, {column});
    RollingRegression regression(whole.fit, whole.sample());
    for (std::size_t last = 200; last > kLast - 2; --last) ASSERT_TRUE(regression.moveTo(0, last - 2));
    const FittedVar seen = regression.fit();
    const Example again = fitted(rowsOf(growth(), 0, kLast - 1), 2, true, rowsOf({column}, 0, kLast - 1));
    expectClose(seen.coefficients, again.fit.coefficients);
    for (std::size_t i = 0; i < 3; ++i) {
      EXPECT_THAT(seen.residuals[i], elementsNear(again.fit.residuals[i], kReference));
    }
  }
}

TEST(Backtest, WithoutLimitsGivesTheSameForecasts) {
  const Example model = fitted(growth(), 2);
  BacktestOptions options{.origins = 4, .horizon = 2};
  const Backtest full = backtest(model.fit, model.sample(), options);
  options.limits = false;
  const Backtest points = backtest(model.fit, model.sample(), options);
  for (std::size_t o = 0; o < 4; ++o) {
    EXPECT_THAT(points.forecasts[o].values.values, elementsNear(full.forecasts[o].values.values, 1e-12));
    EXPECT_TRUE(points.forecasts[o].standardErrors.values.empty());
  }
}

TEST(Backtest, TellsWhereItCannotFit) {
  const Example model = fitted(growth(), 2);
  // 200 rows, 7 regressors: 190 origins leave too few.
  EXPECT_EQ(backtest(model.fit, model.sample(), {.origins = 195, .horizon = 1}).error->origin, 0u);
  // A column that is constant up to row 180 depends on the constant at the first origins.
  std::vector<double> step(202, 0.0);
  std::fill(step.begin() + 180, step.end(), 1.0);
  const Example late = fitted(growth(), 1, true, {step});
  const Backtest seen = backtest(late.fit, late.sample(), {.origins = 30, .horizon = 1, .namedTerms = false});
  EXPECT_EQ(seen.error->origin, 180u);
  EXPECT_EQ(seen.forecasts.size(), 21u);  // those after it
  int calls = 0;
  const Backtest stopped =
      backtest(model.fit, model.sample(), {.origins = 9, .progress = [&](double) { return ++calls < 3; }});
  EXPECT_TRUE(stopped.stopped);
  EXPECT_EQ(stopped.forecasts.size(), 3u);
}

TEST(ForecastEvaluation, ByHand) {
  const std::vector<double> errors = {1, -3, 2, 4};
  const ForecastAccuracy accuracy = forecastAccuracy(errors);
  EXPECT_NEAR(accuracy.rootMeanSquare, std::sqrt(7.5), kRounding);
  EXPECT_EQ(accuracy.meanAbsolute, 2.5);
  EXPECT_EQ(accuracy.bias, 1.0);
  EXPECT_EQ(naiveScale(std::vector<double>{1, 2, 4, 7, 99}, 4, 1), 2.0);
  EXPECT_EQ(naiveScale(std::vector<double>{1, 2, 4, 7, 99}, 4, 2), 4.0);
  EXPECT_TRUE(std::isnan(naiveScale(std::vector<double>{1, 1, 1}, 3, 1)));
  EXPECT_EQ(coveredCount(errors, std::vector<double>{1, 1, 1, 2}, 2.0), 3u);
}

TEST(ForecastEvaluation, NormalScoreIsTheIntegratedSquaredDistance) {
  // CRPS = integral of (Phi(x) - 1{x >= error})^2; at error 0 it is (sqrt 2 - 1) / sqrt pi.
  EXPECT_NEAR(normalScore(std::vector<double>{0}, std::vector<double>{3}), 3 * (std::sqrt(2.0) - 1) / std::sqrt(M_PI),
              1e-15);
  for (const double error : {-1.5, 0.7, 4.0}) {
    double integral = 0.0;
    constexpr double kStep = 1e-4;
    for (double x = -12; x < 12; x += kStep) {
      const double middle = x + kStep / 2;
      integral += kStep * std::pow(0.5 * std::erfc(-middle / std::sqrt(2.0)) - (middle >= error ? 1.0 : 0.0), 2);
    }
    EXPECT_NEAR(normalScore(std::vector<double>{2 * error}, std::vector<double>{2}), 2 * integral, 2e-4);
  }
}

TEST(ForecastComparison, ByHand) {
  // Gains 3, 0, 5, 0: mean 2, deviations 1, -2, 3, -2 with squares 18 and neighbouring products -14.
  const std::vector<double> first = {2, 1, 3, 1};
  const std::vector<double> second = {1, 1, 2, -1};
  const ForecastComparison one = dieboldMariano(first, second, 0).value();
  EXPECT_NEAR(one.statistic, std::sqrt(3.0 / 4) * 2 / std::sqrt(18.0 / 16), kRounding);
  EXPECT_EQ(one.degreesOfFreedom, 3.0);
  EXPECT_NEAR(dieboldMariano(second, first, 0)->statistic, -one.statistic, kRounding);
  EXPECT_EQ(dieboldMariano(second, first, 0)->pValue, one.pValue);
  EXPECT_FALSE(dieboldMariano(first, second, 1));  // 18 - 28 is no variance
  // Clark and West's gains 2 e1 (e1 - e2): 4, 0, 6, 4.
  const ForecastComparison nested = clarkWest(first, second, 0).value();
  EXPECT_NEAR(nested.statistic, 3.5 / std::sqrt(19.0 / 16), kRounding);
  EXPECT_NEAR(nested.pValue, 0.5 * std::erfc(nested.statistic / std::sqrt(2.0)), 1e-15);
}

}  // namespace
}  // namespace engine
