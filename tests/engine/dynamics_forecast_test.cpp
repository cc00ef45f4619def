// Forecasts, the correction of the slopes' bias, limits and conditions: reference numbers and identities.

#include "engine/dynamics/conditional_forecast.h"
#include "engine/dynamics/forecast_limits.h"
#include "engine/dynamics/roots.h"
#include "engine/dynamics/stationary_covariance.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

constexpr std::size_t kHorizon = 8;

class ForecastReference : public testing::TestWithParam<std::size_t> {};

TEST_P(ForecastReference, PlainForecastsAgreeWithAnIndependentProgram) {
  const rapidjson::Document wanted = reference("us_dlog_lag" + std::to_string(GetParam()));
  const Example model = fitted(growth(), GetParam());
  const ForecastPath path = forecastPath(model.fit, model.sample(), model.series[0].size(), kHorizon);
  const Matrix errors =
      standardErrors(shockErrors(lagMatrices(model.fit), residualCovariance(model.fit), kHorizon).value());
  for (std::size_t i = 0; i < 3; ++i) {
    const char* const name = wanted["names"][rapidjson::SizeType(i)].GetString();
    for (rapidjson::SizeType h = 0; h < kHorizon; ++h) {
      EXPECT_TRUE(closeTo(path.values(h, i), wanted["forecast"][name][h].GetDouble(), kReference));
      const double error = wanted["forecast_se_without_estimation_uncertainty"][name][h].GetDouble();
      EXPECT_TRUE(closeTo(errors(h, i), error, kReference));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Lags, ForecastReference, testing::Values(2, 4));

struct Case {
  std::string deterministic;
  KnownTerms terms;
  Example model;
};

Case caseOf(const rapidjson::Value& wanted, const SeriesList& series) {
  const std::string kind = wanted["deterministic"].GetString();
  const KnownTerms terms{kind == "NONE" ? 0u : kind == "CONSTANT" ? 1u : 2u, 1};
  SeriesList known;
  if (kind == "TREND") known.push_back(trendColumn(series[0].size() + kHorizon));
  return {kind, terms, fitted(series, wanted["lag"].GetUint(), kind != "NONE", known)};
}

TEST(AnalyticForecast, AgreesWithThePrototype) {
  for (const std::string transformation : {"dlog", "levels"}) {
    const rapidjson::Document wanted = reference("us_" + transformation + "_limits");
    for (const auto& one : wanted["cases"].GetArray()) {
      const Case c = caseOf(one, transformation == "dlog" ? growth() : levels());
      SCOPED_TRACE(transformation + " " + c.deterministic + " " + std::to_string(c.model.fit.lag));
      const auto forecast = analyticForecast(c.model.fit, c.model.sample(), kHorizon, &c.terms);
      ASSERT_TRUE(forecast);
      const ForecastLimits limits = studentLimits(forecast->values, forecast->standardErrors,
                                                  forecast->degreesOfFreedom, one["level"].GetDouble());
      EXPECT_NEAR(forecast->model.share, one["delta"].GetDouble(), kRounding);
      expectAllClose(forecast->model.bias, one["bias_of_companion_first_rows"], kReference);
      expectAllClose(forecast->values, one["forecast"], kReference);
      expectAllClose(forecast->standardErrors, one["standard_error"], kReference);
      expectAllClose(limits.lower, one["lower"], kReference);
      expectAllClose(limits.upper, one["upper"], kReference);
    }
  }
}

TEST(ConditionalForecast, AgreesWithThePrototype) {
  const Example model = fitted(growth(), 2);
  const KnownTerms constant;
  const auto plain = analyticForecast(model.fit, model.sample(), kHorizon, &constant).value();
  const auto shocks = shockErrors(lagMatrices(model.fit), residualCovariance(model.fit), kHorizon).value();
  for (const auto& one : reference("us_dlog_conditional")["cases"].GetArray()) {
    std::vector<HeldValue> held;
    for (const auto& cell : one["held"].GetArray()) {
      held.push_back({cell["horizon"].GetUint(), cell["series"].GetUint(), cell["value"].GetDouble()});
    }
    const auto seen = conditionalForecast(plain.values, shocks, plain.errors, held).value();
    expectAllClose(seen.values, one["conditional_mean"], kReference);
    for (std::size_t i = 0; i < seen.standardErrors.values.size(); ++i) {
      // The reference has round-off where a value is held, the engine 0.
      const double error = one["conditional_standard_error"][unsigned(i / 3)][unsigned(i % 3)].GetDouble();
      const bool isHeld =
          std::ranges::any_of(held, [&](const HeldValue& h) { return (h.horizon - 1) * 3 + h.series == i; });
      EXPECT_TRUE(closeTo(seen.standardErrors.values[i], isHeld ? 0.0 : error, kReference));
    }
    EXPECT_TRUE(closeTo(seen.unusual.statistic, one["q"].GetDouble(), kReference));
    EXPECT_TRUE(closeTo(seen.unusual.pValue, one["p"].GetDouble(), kReference));
  }
}

TEST(ConditionalForecast, NothingHeldAndEverythingHeld) {
  const Example model = fitted(growth(), 2);
  const KnownTerms constant;
  const auto plain = analyticForecast(model.fit, model.sample(), 3, &constant).value();
  const auto shocks = shockErrors(lagMatrices(model.fit), residualCovariance(model.fit), 3).value();
  const auto none = conditionalForecast(plain.values, shocks, plain.errors, {}).value();
  EXPECT_EQ(none.values.values, plain.values.values);
  EXPECT_THAT(none.standardErrors.values, elementsNear(plain.standardErrors.values, kRounding));
  std::vector<HeldValue> all;
  for (std::size_t cell = 0; cell < 9; ++cell) all.push_back({cell / 3 + 1, cell % 3, double(cell) - 4});
  const auto whole = conditionalForecast(plain.values, shocks, plain.errors, all).value();
  EXPECT_THAT(whole.values.values, ::testing::ElementsAre(-4, -3, -2, -1, 0, 1, 2, 3, 4));
  EXPECT_THAT(whole.standardErrors.values, ::testing::Each(0.0));
  // Held where it would be anyway, nothing moves; held later, the periods before it move.
  const std::vector<HeldValue> expected = {{2, 1, plain.values(1, 1)}};
  const auto same = conditionalForecast(plain.values, shocks, plain.errors, expected).value();
  EXPECT_THAT(same.values.values, elementsNear(plain.values.values, kRounding));
  const std::vector<HeldValue> higher = {{2, 1, plain.values(1, 1) + 1}};
  const auto moved = conditionalForecast(plain.values, shocks, plain.errors, higher).value();
  EXPECT_GT(std::fabs(moved.values(0, 1) - plain.values(0, 1)), 0.01);
  const std::vector<HeldValue> twice = {{1, 0, 0.0}, {1, 0, 1.0}};
  EXPECT_FALSE(conditionalForecast(plain.values, shocks, plain.errors, twice));
}

TEST(ForecastErrors, OfARandomWalkWithDriftByHand) {
  // y = c + a y(-1) + e on 0, 1, 0, 2: corrections off. One step ahead the variance is s^2 (1 + x' (Z'Z)^-1 x).
  const Example model = fitted({{0, 1, 0, 2, 1}}, 1);
  const CorrectedModel plain{Matrix(1, 1), 0.0, model.fit, residualCovariance(model.fit)};
  const ForecastPath path = forecastPath(model.fit, model.sample(), 5, 2);
  const auto errors = forecastErrors(plain, path.regressors).value();
  const double s2 = plain.covariance(0, 0);
  const double a = model.fit.coefficients(0, 1);
  const auto quadratic = [&](std::size_t s, std::size_t r) {
    return multiplyTransposed(multiply(blockOf(path.regressors, s, 0, 1, 2), model.fit.inverse),
                              blockOf(path.regressors, r, 0, 1, 2))(0, 0);
  };
  EXPECT_NEAR(errors.covariance(1, 1)(0, 0), s2 * (1 + quadratic(0, 0)), kRounding);
  const double second = s2 * (1 + a * a + quadratic(1, 1) + 2 * a * quadratic(0, 1) + a * a * quadratic(0, 0));
  EXPECT_NEAR(errors.covariance(2, 2)(0, 0), second, 1e-13);
  EXPECT_NEAR(errors.covariance(2, 1)(0, 0), s2 * (a + quadratic(1, 0) + a * quadratic(0, 0)), 1e-13);
  EXPECT_EQ(errors.covariance(1, 2)(0, 0), errors.covariance(2, 1)(0, 0));
}

TEST(ForecastPath, UsesTrendSeasonsAndFutureValues) {
  // y = 1 + 0.5 y(-1) + 2 trend - 3 x, from y = 10 at row 2.
  FittedVar fit;
  fit.lag = 1;
  fit.coefficients = matrixOf({{1, 0.5, 2, -3}});
  const SeriesList series = {{0, 0, 10}};
  const SeriesList known = {trendColumn(5), {0, 0, 0, 1, 4}};
  EXPECT_THAT(forecastPath(fit, {series, known}, 3, 2).values.values,
              ::testing::ElementsAre(1 + 5 + 6 - 3, 1 + 4.5 + 8 - 12));
  EXPECT_THAT(forecastPath(fit, {series, known}, 2, 1).values.values, ::testing::ElementsAre(1 + 0 + 4 - 0));
}

TEST(StationaryCovariance, SolvesItsEquation) {
  const Example model = fitted(growth(), 4);
  const LagMatrices lags = lagMatrices(model.fit);
  const Matrix f = companionMatrix(lags);
  const Matrix gamma = stationaryCovariance(lags, residualCovariance(model.fit)).value();
  Matrix rest = gamma;
  addScaled(-1.0, multiplyTransposed(multiply(f, gamma), f), rest);
  const Matrix shocks = blockOf(rest, 0, 0, 3, 3);
  EXPECT_THAT(shocks.values, elementsNear(residualCovariance(model.fit).values, 1e-12));
  EXPECT_LT(sumOfSquares(rest) - sumOfSquares(shocks), 1e-20);
  EXPECT_NEAR(
      stationaryCovariance(LagMatrices{matrixOf({{0.999999}})}, matrixOf({{1}}))->values[0] * (1 - 0.999999 * 0.999999),
      1.0, 1e-9);
  EXPECT_FALSE(stationaryCovariance(LagMatrices{matrixOf({{1.0}})}, matrixOf({{1}})));
  // y(t) = 0.5 y(t-2) + e: the first lag block is empty, the second is not.
  const Matrix two = stationaryCovariance(LagMatrices{matrixOf({{0}}), matrixOf({{0.5}})}, matrixOf({{3}})).value();
  EXPECT_THAT(two.values, elementsNear({4, 0, 0, 4}, 1e-14));
}

TEST(SlopeBias, OfOneSeriesIsKendalls) {
  // AR(1): -(1 + 3 a) / n with a constant (Kendall 1954), -2 a / n without, -(2 + 4 a) / n with a trend.
  for (const double a : {-0.6, 0.0, 0.9}) {
    const LagMatrices lags = {matrixOf({{a}})};
    const std::vector<double> expected = {-2 * a / 50, -(1 + 3 * a) / 50, -(2 + 4 * a) / 50};
    for (std::size_t polynomial = 0; polynomial < 3; ++polynomial) {
      EXPECT_NEAR(slopeBias(lags, matrixOf({{7}}), 50, {polynomial, 1})->values[0], expected[polynomial], 1e-14);
    }
  }
}

TEST(SlopeBias, ShortFormsEqualTheGeneralOneToOrderOneOverN) {
  const LagMatrices lags = {matrixOf({{0.5, 0.1}, {0.2, 0.3}}), matrixOf({{0.1, -0.2}, {0.0, 0.1}})};
  const Matrix covariance = matrixOf({{2, 0.5}, {0.5, 1}});
  const auto distance = [&](std::size_t n) {
    SeriesList columns = seasonColumns(4, n);
    columns.emplace_back(n, 1.0);
    columns.push_back(trendColumn(n));
    Matrix general = slopeBias(lags, covariance, n, columns).value();
    const Matrix shortForm = slopeBias(lags, covariance, n, KnownTerms{2, 4}).value();
    addScaled(-1.0, shortForm, general);
    return std::sqrt(sumOfSquares(general) / sumOfSquares(shortForm));
  };
  EXPECT_LT(distance(400), 0.02);
  EXPECT_NEAR(distance(400) / distance(1600), 4.0, 0.2);
}

TEST(SlopeBias, DrivenFormIsPopesWhereNothingIsDriven) {
  const LagMatrices lags = {matrixOf({{0.5, 0.1}, {0.2, 0.3}}), matrixOf({{0.1, -0.2}, {0.0, 0.1}})};
  const Matrix covariance = matrixOf({{2, 0.5}, {0.5, 1}});
  SeriesList columns = {std::vector<double>(150, 1.0), noise(3, 150)};
  const Matrix plain = slopeBias(lags, covariance, 150, columns).value();
  const SeriesList nothing(4, std::vector<double>(150));
  EXPECT_THAT(slopeBias(lags, covariance, 150, columns, nothing)->values, elementsNear(plain.values, 1e-13));
  // What the columns explain entirely drives nothing.
  EXPECT_THAT(slopeBias(lags, covariance, 150, columns, SeriesList(4, columns[1]))->values,
              elementsNear(plain.values, 1e-13));
  // The more is driven, the less bias is left: the regressors vary without the shocks.
  SeriesList driven;
  for (std::uint64_t i = 0; i < 4; ++i) driven.push_back(scaled({noise(50 + i, 150)}, 1e6)[0]);
  EXPECT_LT(sumOfSquares(*slopeBias(lags, covariance, 150, columns, driven)), 1e-10 * sumOfSquares(plain));
}

TEST(BiasCorrection, LeavesResidualsOrthogonalToTheKnownColumns) {
  const SeriesList series = growth();
  const Example model = fitted(series, 2, true, {trendColumn(series[0].size())});
  const KnownTerms trend{2, 1};
  const CorrectedModel corrected = correctedModel(model.fit, model.sample(), &trend).value();
  // The corrected residuals from the data.
  const auto columns = regressorColumns(model.fit, model.sample());
  SeriesList residuals(3);
  for (std::size_t i = 0; i < 3; ++i) {
    residuals[i].assign(series[i].begin() + 2, series[i].end());
    for (std::size_t j = 0; j < columns.size(); ++j) {
      for (std::size_t r = 0; r < residuals[i].size(); ++r) {
        residuals[i][r] -= corrected.fit.coefficients(i, j) * columns[j][r];
      }
    }
    for (const std::size_t j : deterministicColumns(model.fit)) {
      double product = 0.0;
      double length = 0.0;
      for (std::size_t r = 0; r < residuals[i].size(); ++r) {
        product += columns[j][r] * residuals[i][r];
        length += std::fabs(columns[j][r] * residuals[i][r]);
      }
      EXPECT_LT(std::fabs(product), 1e-12 * length);
    }
  }
  for (std::size_t i = 0; i < 3; ++i) {
    double sum = 0.0;
    for (std::size_t r = 0; r < residuals[i].size(); ++r) sum += residuals[i][r] * residuals[0][r];
    EXPECT_NEAR(corrected.covariance(i, 0), sum / residualDegrees(model.fit), 1e-13);
  }
}

TEST(BiasCorrection, KeepsTheModelStable) {
  // One series with a = 0.98 and a bias of -0.0316: 0.98 + 0.0316 delta < 1 up to delta = 0.63.
  const LagMatrices lags = {matrixOf({{0.98}})};
  EXPECT_NEAR(stabilisingShare(lags, matrixOf({{-0.0316}}), {1}), 0.63, kRounding);
  EXPECT_EQ(stabilisingShare(lags, matrixOf({{0.1}}), {1}), 1.0);
  EXPECT_EQ(stabilisingShare(LagMatrices{matrixOf({{1.5}})}, matrixOf({{0.1}}), {1}), 0.0);
}

TEST(AnalyticForecast, ExogenousSeriesTakeTheGeneralForm) {
  // A constant and a trend given as exogenous columns: the general form, close to the short one.
  const SeriesList series = growth();
  const Example model = fitted(series, 2, true, {trendColumn(series[0].size() + kHorizon)});
  const KnownTerms trend{2, 1};
  const auto general = analyticForecast(model.fit, model.sample(), kHorizon, nullptr).value();
  const auto shortForm = analyticForecast(model.fit, model.sample(), kHorizon, &trend).value();
  EXPECT_EQ(general.values.values, shortForm.values.values);
  for (std::size_t i = 0; i < general.standardErrors.values.size(); ++i) {
    EXPECT_TRUE(closeTo(general.standardErrors.values[i], shortForm.standardErrors.values[i], 2e-3));
  }
  EXPECT_NE(general.standardErrors.values, shortForm.standardErrors.values);
}

}  // namespace
}  // namespace engine
