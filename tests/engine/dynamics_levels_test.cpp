// Forecasts in levels: the same as those of the model that the levels follow, and as simulated paths.

#include "engine/arithmetic/philox.h"
#include "engine/dynamics/forecast_errors.h"
#include "engine/dynamics/level_forecast.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

constexpr std::size_t kHorizon = 12;

// The lag matrices of x where (1 - L^s) x follows those of A: A(L) (1 - L^s).
LagMatrices ofLevels(const LagMatrices& lags, std::size_t s) {
  const std::size_t k = lags.front().rows;
  LagMatrices result(lags.size() + s, Matrix(k, k));
  for (std::size_t i = 0; i < k; ++i) result[s - 1](i, i) = 1.0;
  for (std::size_t l = 0; l < lags.size(); ++l) {
    addScaled(1.0, lags[l], result[l]);
    addScaled(-1.0, lags[l], result[l + s]);
  }
  return result;
}

TEST(LevelForecast, OfDifferencesHasTheErrorsOfTheModelThatTheLevelsFollow) {
  const Example model = fitted(growth(), 2);
  const Matrix covariance = residualCovariance(model.fit);
  const LagMatrices lags = lagMatrices(model.fit);
  const ForecastErrors errors = shockErrors(lags, covariance, kHorizon).value();
  const Matrix forecast = forecastPath(model.fit, model.sample(), model.series[0].size(), kHorizon).values;
  for (const std::size_t season : {std::size_t{1}, std::size_t{4}}) {
    const Matrix wanted = standardErrors(shockErrors(ofLevels(lags, season), covariance, kHorizon).value());
    for (std::size_t i = 0; i < 3; ++i) {
      const LevelScale scale{Change::difference, 2.0, season, std::vector<double>(season, 7.0)};
      const LevelForecast levels = levelForecast(columnOf(forecast, i), seriesCovariance(errors, i), scale);
      for (std::size_t h = 0; h < kHorizon; ++h) {
        EXPECT_TRUE(closeTo(levels.spreads[h], wanted(h, i) / 2.0, 1e-12)) << season << " " << h;
        const double before = h < season ? 7.0 : levels.values[h - season];
        EXPECT_NEAR(levels.values[h], before + forecast(h, i) / 2.0, 1e-12);
      }
    }
  }
}

// gretl 2022c: `var 2` of 100 times the differences of logarithms; the last level times exp of the summed recursion,
// and the standard error of that sum from the cumulated moving averages of $coeff and the residuals' covariance (n -
// m).
TEST(LevelForecast, AgreesWithGretl) {
  const Example model = fitted(growth(), 2);
  const Matrix forecast = forecastPath(model.fit, model.sample(), model.series[0].size(), kHorizon).values;
  const ForecastErrors errors = shockErrors(lagMatrices(model.fit), residualCovariance(model.fit), kHorizon).value();
  const LevelScale scale{Change::logDifference, 100.0, 1, {levels()[0].back()}};
  const LevelForecast seen = levelForecast(columnOf(forecast, 0), seriesCovariance(errors, 0), scale);
  EXPECT_TRUE(closeTo(seen.values[3], 13317.951172685, kReference));
  EXPECT_TRUE(closeTo(seen.values[11], 14148.7999526869, kReference));
  EXPECT_TRUE(closeTo(100.0 * seen.spreads[3], 2.13745714492496, kReference));
  EXPECT_TRUE(closeTo(100.0 * seen.spreads[11], 4.65430433579444, kReference));
}

TEST(LevelForecast, TakesUncertaintyOfTheCoefficientsAndHeldValuesFromTheCovarianceGiven) {
  // Errors 1, 2 with variances 4, 9 and covariance -3 leave 4 and 4 + 9 - 6 in their sum.
  Matrix covariance(2, 2);
  covariance(0, 0) = 4.0;
  covariance(1, 1) = 9.0;
  covariance(0, 1) = covariance(1, 0) = -3.0;
  const std::vector<double> y{1.0, 2.0};
  const LevelForecast sum = levelForecast(y, covariance, {Change::difference, 1.0, 1, {10.0}});
  EXPECT_THAT(sum.values, ::testing::ElementsAre(11.0, 13.0));
  EXPECT_THAT(sum.spreads, elementsNear({2.0, std::sqrt(7.0)}, kRounding));
  const LevelForecast logarithm = levelForecast(y, covariance, {Change::logarithm, 2.0, 0, {}});
  EXPECT_THAT(logarithm.values, elementsNear({std::exp(0.5), std::exp(1.0)}, kRounding));
  EXPECT_THAT(logarithm.spreads, elementsNear({1.0, 1.5}, kRounding));
  const LevelForecast::Limits limits = logarithm.limits(1e9, 95.0);
  EXPECT_NEAR(std::log(limits.upper[1]), 1.0 + 1.959964 * 1.5, 1e-5);
  EXPECT_NEAR(std::log(limits.lower[1]), 1.0 - 1.959964 * 1.5, 1e-5);
  // A negative series that grows by a percentage keeps its limits in order; a fall by 100 % has none.
  const LevelScale percent{Change::percentage, 1.0, 1, {-50.0}};
  const LevelForecast::Limits negative = levelForecast(y, covariance, percent).limits(30.0, 95.0);
  EXPECT_LT(negative.lower[1], negative.upper[1]);
  EXPECT_TRUE(std::isnan(levelForecast(std::vector<double>{-100.0, 1.0}, covariance, percent).spreads[1]));
}

// Paths drawn from the forecasts' joint distribution and summed up stay within the limits as often as they say.
TEST(LevelForecast, HoldsSimulatedPathsAsOftenAsItSays) {
  constexpr std::size_t kDraws = 20000;
  constexpr double kTolerance = 0.006;  // four standard errors of a share of .95
  const Example model = fitted(growth(), 2);
  const ForecastErrors errors = shockErrors(lagMatrices(model.fit), residualCovariance(model.fit), kHorizon).value();
  const Matrix covariance = seriesCovariance(errors, 2);  // investment, which varies most
  const Matrix root = choleskyFactor(covariance).value();
  const std::vector<double> forecast =
      columnOf(forecastPath(model.fit, model.sample(), model.series[0].size(), kHorizon).values, 2);
  for (const Change change : {Change::difference, Change::logDifference, Change::percentage}) {
    const LevelScale scale{change, change == Change::logDifference ? 100.0 : 1.0, 1, {1500.0}};
    const LevelForecast::Limits limits = levelForecast(forecast, covariance, scale).limits(1e9, 95.0);
    std::vector<std::size_t> inside(kHorizon);
    RandomStream random(1, 1);
    for (std::size_t draw = 0; draw < kDraws; ++draw) {
      std::vector<double> normal(kHorizon);
      for (double& value : normal) value = random.normal();
      std::vector<double> path = forecast;
      for (std::size_t h = 0; h < kHorizon; ++h) {
        for (std::size_t g = 0; g <= h; ++g) path[h] += root(h, g) * normal[g];
      }
      const std::vector<double> level = levelPath(path, scale);
      for (std::size_t h = 0; h < kHorizon; ++h)
        if (limits.lower[h] <= level[h] && level[h] <= limits.upper[h]) ++inside[h];
    }
    for (const std::size_t h : std::vector<std::size_t>{0, 3, 11}) {
      EXPECT_NEAR(static_cast<double>(inside[h]) / kDraws, 0.95, kTolerance) << static_cast<int>(change) << " " << h;
    }
  }
}

}  // namespace
}  // namespace engine
