// Impulse responses, their standard errors, and decompositions: reference numbers and identities.

#include "engine/dynamics/decompositions.h"
#include "engine/dynamics/forecast_errors.h"
#include "engine/dynamics/impulse_responses.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

constexpr double kDeltaReference = 1e-7;  // what the reference's own arithmetic keeps

class ResponsesReference : public testing::TestWithParam<std::size_t> {
 protected:
  const Example model = fitted(growth(), GetParam());
  const rapidjson::Document wanted = reference("us_dlog_lag" + std::to_string(GetParam()));
  const rapidjson::Document errors = reference("us_dlog_lag" + std::to_string(GetParam()) + "_asymptotic");

  // [impulse][horizon][response] of the reference.
  void expectResponses(const Responses& seen, const char* key) const {
    for (std::size_t h = 0; h < seen.size(); ++h) {
      for (std::size_t j = 0; j < 3; ++j) {
        const rapidjson::Value& row = wanted[key][wanted["names"][unsigned(j)].GetString()][unsigned(h)];
        for (std::size_t i = 0; i < 3; ++i) {
          EXPECT_NEAR(seen[h](i, j), row[unsigned(i)].GetDouble(), kReference * std::fabs(seen[h](i, j)) + 1e-12);
        }
      }
    }
  }
  void expectErrors(const ImpulseOptions& options, const char* key) const {
    const Responses seen = responseErrors(model.fit, options, 8).value();
    for (std::size_t h = 0; h < seen.size(); ++h) expectAllClose(seen[h], errors[key][unsigned(h)], kDeltaReference);
  }
};

TEST_P(ResponsesReference, AgreeWithIndependentPrograms) {
  const ImpulseOptions orthogonal;
  const ImpulseOptions reduced{.type = ShockType::reduced};
  expectResponses(impulseResponses(model.fit, orthogonal, 8).value(), "irf_orthogonal_by_impulse");
  expectResponses(impulseResponses(model.fit, reduced, 8).value(), "irf_unit_by_impulse");
  expectErrors(orthogonal, "se_orthogonal");
  expectErrors(reduced, "se_unit");
  const ImpulseOptions cumulated{.type = ShockType::reduced, .cumulative = {true, true, true}};
  expectErrors(cumulated, "se_cumulative_unit");
  const Responses sums = impulseResponses(model.fit, cumulated, 8).value();
  for (std::size_t h = 0; h < sums.size(); ++h)
    expectAllClose(sums[h], errors["cumulative_unit"][unsigned(h)], kReference);
}

TEST_P(ResponsesReference, VarianceSharesAgreeAndSumToOne) {
  const std::vector<Matrix> shares = varianceShares(impulseResponses(model.fit, {}, 7).value());
  for (std::size_t h = 0; h < shares.size(); ++h) {
    for (std::size_t i = 0; i < 3; ++i) {
      const rapidjson::Value& row = wanted["fevd_by_variable"][wanted["names"][unsigned(i)].GetString()][unsigned(h)];
      double sum = 0.0;
      for (std::size_t j = 0; j < 3; ++j) {
        EXPECT_NEAR(shares[h](i, j), row[unsigned(j)].GetDouble(), kReference);
        sum += shares[h](i, j);
      }
      EXPECT_NEAR(sum, 1.0, 1e-15);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Lags, ResponsesReference, testing::Values(2, 4));

TEST(Responses, GeneralizedIsOrthogonalOfTheFirstSeriesOfItsOrder) {
  const Example model = fitted(growth(), 2);
  const ImpulseOptions generalized{.type = ShockType::generalized};
  const Responses all = impulseResponses(model.fit, generalized, 6).value();
  const Responses allErrors = responseErrors(model.fit, generalized, 6).value();
  for (std::size_t j = 0; j < 3; ++j) {
    const ImpulseOptions first{.order = {j, (j + 2) % 3, (j + 1) % 3}};
    const Responses orthogonal = impulseResponses(model.fit, first, 6).value();
    const Responses errors = responseErrors(model.fit, first, 6).value();
    for (std::size_t h = 0; h < all.size(); ++h) {
      EXPECT_THAT(columnOf(orthogonal[h], j), elementsNear(columnOf(all[h], j), 1e-13));
      EXPECT_THAT(columnOf(errors[h], j), elementsNear(columnOf(allErrors[h], j), 1e-13));
    }
  }
}

TEST(Responses, PermutingSeriesAndOrderTogetherChangesNothing) {
  const SeriesList series = growth();
  const Example plain = fitted(series, 2);
  const Example moved = fitted({series[2], series[0], series[1]}, 2);  // series i of the model is at (i + 1) % 3
  for (const bool unit : {false, true}) {
    const ImpulseOptions options{.unit = unit, .cumulative = {true, false, false}};
    const ImpulseOptions movedOptions{.unit = unit, .cumulative = {false, true, false}, .order = {1, 2, 0}};
    const Responses expected = impulseResponses(plain.fit, options, 5).value();
    const Responses expectedErrors = responseErrors(plain.fit, options, 5).value();
    const Responses seen = impulseResponses(moved.fit, movedOptions, 5).value();
    const Responses seenErrors = responseErrors(moved.fit, movedOptions, 5).value();
    for (std::size_t h = 0; h < seen.size(); ++h) {
      for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
          EXPECT_NEAR(seen[h]((i + 1) % 3, (j + 1) % 3), expected[h](i, j), 1e-12);
          EXPECT_NEAR(seenErrors[h]((i + 1) % 3, (j + 1) % 3), expectedErrors[h](i, j), 1e-12);
        }
      }
    }
    // Scaled to the unit, a shock moves its own series by exactly 1 at horizon 0.
    EXPECT_EQ(seenErrors[0](0, 0) < 1e-12, unit);
  }
}

TEST(Responses, ExogenousSeriesMoveForecastsByTheirResponses) {
  SeriesList series = growth();
  const std::vector<double> x = series.back();
  series.pop_back();
  SeriesList known = {x, lagged(x, 1)};
  for (auto& one : known) one.resize(x.size() + 4);
  const Example model = fitted(series, 2, true, known);
  const ImpulseOptions options{.type = ShockType::exogenous, .exogenousColumns = {{5, 6}}};
  const Responses seen = impulseResponses(model.fit, options, 3).value();
  const ForecastPath plain = forecastPath(model.fit, model.sample(), x.size(), 4);
  known[0][x.size()] += 1.0;
  known[1][x.size() + 1] += 1.0;
  const ForecastPath shocked = forecastPath(model.fit, {series, known}, x.size(), 4);
  for (std::size_t h = 0; h < 4; ++h) {
    for (std::size_t i = 0; i < 2; ++i) {
      EXPECT_NEAR(seen[h](i, 0), shocked.values(h, i) - plain.values(h, i), 1e-13);
    }
  }
  // At horizon 0 the response is the coefficient, and so is its standard error.
  const Responses errors = responseErrors(model.fit, options, 3).value();
  EXPECT_NEAR(errors[0](1, 0), std::sqrt(residualCovariance(model.fit)(1, 1) * model.fit.inverse(5, 5)), 1e-14);
}

TEST(VarianceShares, GeneralizedOnesAreOneForUncorrelatedShocks) {
  const Responses responses = {matrixOf({{2, 0}, {0, 1}}), matrixOf({{1, 1}, {2, 3}})};
  const std::vector<Matrix> shares = generalizedShares(responses, responses);
  EXPECT_THAT(shares[1].values, elementsNear({5.0 / 6, 1.0 / 6, 4.0 / 14, 10.0 / 14}, kRounding));
  // Correlated: e_1' S e_2 = 1 of s = (4, 1) is 1^2 / (1 * 4) of the first variance.
  const Matrix covariance = matrixOf({{4, 1}, {1, 1}});
  const std::vector<std::size_t> order = {0, 1};
  const std::vector<Matrix> correlated = generalizedShares(std::vector{generalizedImpact(covariance)},
                                                           std::vector{orderedCholesky(covariance, order).value()});
  EXPECT_THAT(correlated[0].values, elementsNear({1, 0.25, 0.25, 1}, kRounding));
  EXPECT_THAT(normalisedShares(correlated)[0].values, elementsNear({0.8, 0.2, 0.2, 0.8}, kRounding));
}

TEST(HistoricalDecomposition, PartsSumToTheData) {
  for (SeriesList series : {growth(), levels()}) {
    const std::vector<double> x = series.back();
    series.pop_back();
    const Example model = fitted(series, 2, true, {trendColumn(x.size()), x, lagged(x, 1)});
    const std::vector<std::size_t> order = {1, 0};
    const std::vector<std::vector<std::size_t>> exogenous = {{6, 7}};
    const auto parts = historicalDecomposition(
        model.fit, model.sample(), orderedCholesky(residualCovariance(model.fit), order).value(), exogenous);
    Matrix sum = parts.deterministic;
    for (const Matrix* part : {&parts.exogenous[0], &parts.initial, &parts.shocks[0], &parts.shocks[1]}) {
      addScaled(1.0, *part, sum);
    }
    for (std::size_t i = 0; i < 2; ++i) {
      double largest = 0.0;
      for (const double value : series[i]) largest = std::max(largest, std::fabs(value));
      for (std::size_t r = 0; r < sum.rows; ++r) EXPECT_NEAR(sum(r, i), series[i][r + 2], 1e-12 * largest);
    }
  }
}

TEST(HistoricalDecomposition, ByHand) {
  // y = 1 + 0.5 y(-1) + e from y = 4: e = 1, then -1.
  FittedVar fit;
  fit.lag = fit.firstRow = 1;
  fit.coefficients = matrixOf({{1, 0.5}});
  fit.residuals = {{1, -1}};
  const auto parts = historicalDecomposition(fit, {SeriesList{{4, 4, 2}}, {}}, matrixOf({{2}}), {});
  EXPECT_THAT(parts.deterministic.values, ::testing::ElementsAre(1, 1.5));
  EXPECT_THAT(parts.initial.values, ::testing::ElementsAre(2, 1));
  EXPECT_THAT(parts.shocks[0].values, ::testing::ElementsAre(1, -0.5));
}

}  // namespace
}  // namespace engine
