// The bootstrap: every replication is the fit of its own path, bands are percentiles of what the draws imply.

#include "engine/dynamics/bands.h"
#include "engine/dynamics/bootstrap_bands.h"
#include "engine/dynamics/decompositions.h"
#include "engine/dynamics/forecast_limits.h"
#include "engine/dynamics/roots.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

// Normal equations on centred series: the data here costs them up to five digits.
constexpr double kNormalEquations = 1e-10;

struct Setting {
  Example model;
  CorrectedModel corrected;
  ResamplingPlan plan;
};

Setting settingOf(Example model, const KnownTerms* terms) {
  CorrectedModel corrected = correctedModel(model.fit, model.sample(), terms).value();
  ResamplingPlan plan = resamplingPlan(model.fit, model.sample(), corrected).value();
  return {std::move(model), std::move(corrected), std::move(plan)};
}

Setting growthSetting(std::size_t lag = 2) {
  const KnownTerms constant;
  return settingOf(fitted(growth(), lag), &constant);
}

SeriesList pathOf(const Replication& replication, const Setting& setting) {
  const std::size_t k = setting.plan.series;
  SeriesList series(k);
  for (std::size_t c = 0; c < replication.path().size(); ++c) {
    series[c % k].push_back(replication.path()[c] + setting.plan.centre[c % k]);
  }
  return series;
}

TEST(Replication, IsTheCorrectedFitOfItsPath) {
  const SeriesList data = growth();
  const std::size_t length = data[0].size();
  const KnownTerms none{0, 1};
  std::vector<Setting> settings;
  settings.push_back(growthSetting(4));
  settings.push_back(settingOf(fitted(data, 2, false), &none));
  SeriesList known = seasonColumns(4, length);
  known.push_back(trendColumn(length));
  settings.push_back(settingOf(fitted({data[0], data[2]}, 2, true, known), nullptr));
  for (const Setting& setting : settings) {
    BootstrapDraws draws(setting.plan, {.replications = 1});
    Replication replication(setting.plan);
    for (const Resample resample : {Resample::residual, Resample::wild}) {
      RandomStream random(3, 5);
      ASSERT_TRUE(replication.run(resample, random, draws.model(0)));
      SeriesList columns = setting.model.known;
      for (auto& column : columns)
        column.erase(column.begin(), column.end() - std::ptrdiff_t(replication.path().size() / setting.plan.series));
      const Example again =
          fitted(pathOf(replication, setting), setting.model.fit.lag, setting.model.fit.constant, columns);
      // With the sample's bias, not that of the replication.
      const CorrectedModel expected = correctedModel(again.fit, setting.corrected.bias).value();
      EXPECT_THAT(joined(draws.lagMatrices(0)).values,
                  elementsNear(joined(lagMatrices(expected.fit)).values, kNormalEquations));
      const Matrix root =
          blockOf(Matrix(residualCovariance(again.fit)), 0, 0, again.series.size(), again.series.size());
      Matrix factor(root.rows, root.rows);
      std::ranges::copy(draws.model(0).root, factor.values.begin());
      EXPECT_THAT(multiplyTransposed(factor, factor).values, elementsNear(root.values, kNormalEquations));
      const Matrix terms = draws.termCoefficients(0);
      for (std::size_t d = 1; d < terms.rows; ++d) {  // the constant is that of the centred series
        for (std::size_t i = 0; i < terms.columns; ++i) {
          EXPECT_NEAR(terms(d, i), expected.fit.coefficients(i, firstKnownColumn(again.fit) + d - 1), 1e-9);
        }
      }
    }
  }
}

TEST(Replication, DrawsTheShocksOfTheCorrectedModel) {
  // Wild draws keep the rows: path(t) less the corrected model's prediction is shock(t) times one number a row.
  const Setting setting = growthSetting();
  BootstrapDraws draws(setting.plan, {.replications = 1});
  Replication replication(setting.plan);
  RandomStream random(1, 0);
  replication.run(Resample::wild, random, draws.model(0));
  const SeriesList path = pathOf(replication, setting);
  const FittedVar& fit = setting.corrected.fit;
  const double inflation = std::sqrt(200.0 / (200.0 - 7.0));
  RandomStream again(1, 0);
  for (std::size_t r = 0; r < 200; ++r) {
    const double factor = again.normal();
    for (std::size_t i = 0; i < 3; ++i) {
      double drawn = path[i][r + 2] - fit.coefficients(i, 0);
      double actual = setting.model.series[i][r + 2] - fit.coefficients(i, 0);
      for (std::size_t c = 0; c < 6; ++c) {
        drawn -= fit.coefficients(i, 1 + c) * path[c % 3][r + 1 - c / 3];
        actual -= fit.coefficients(i, 1 + c) * setting.model.series[c % 3][r + 1 - c / 3];
      }
      EXPECT_NEAR(drawn, factor * inflation * actual, 1e-11);
    }
  }
}

TEST(StabilityTest, AgreesWithTheEigenvalues) {
  StabilityTest test({1e-3, 1.0, 1e3}, 2);
  int stable = 0;
  for (std::uint64_t seed = 0; seed < 300; ++seed) {
    std::vector<double> lags = noise(seed, 18);  // oldest first, in mixed units
    for (std::size_t c = 0; c < 18; ++c) {
      lags[c] *= 0.75 * std::pow(1000.0, static_cast<double>(c / 6) - static_cast<double>(c % 3));
    }
    Matrix joinedLags(3, 6);
    for (std::size_t c = 0; c < 18; ++c) joinedLags(c / 6, (c % 6 + 3) % 6) = lags[c];
    const bool expected = largestModulus(separated(joinedLags)) < 1.0;
    stable += expected ? 1 : 0;
    EXPECT_EQ(test.isStable(lags), expected) << seed;
  }
  EXPECT_GT(stable, 50);
  EXPECT_LT(stable, 250);
  StabilityTest one({1.0}, 1);
  EXPECT_TRUE(one.isStable(std::vector{1.0 - 1e-12}));
  EXPECT_TRUE(one.isStable(std::vector{-1.0 + 1e-12}));
  EXPECT_FALSE(one.isStable(std::vector{1.0}));
  EXPECT_FALSE(one.isStable(std::vector{-1.0}));
}

TEST(BootstrapDraws, AreTheSameOnAnyNumberOfThreads) {
  const Setting setting = growthSetting();
  std::vector<std::vector<double>> results;
  for (const std::size_t jobs : {1u, 3u}) {
    BootstrapDraws draws(setting.plan, {.replications = 333, .jobs = jobs});
    ASSERT_TRUE(draws.run());
    const auto bands = responseBands(draws, {}, 5, {.levels = {68, 95}, .jobs = jobs}).value();
    std::vector<double>& values = results.emplace_back();
    for (const Band& band : bands) {
      for (const Matrix& one : band.lower) values.insert(values.end(), one.values.begin(), one.values.end());
      for (const Matrix& one : band.upper) values.insert(values.end(), one.values.begin(), one.values.end());
    }
  }
  EXPECT_EQ(results[0], results[1]);
}

TEST(BootstrapDraws, StopWhenToldTo) {
  std::vector<double> shares;
  BootstrapDraws draws(growthSetting().plan, {.replications = 1000, .progress = [&](double share) {
                                                shares.push_back(share);
                                                return shares.size() < 3;
                                              }});
  EXPECT_FALSE(draws.run());
  ASSERT_EQ(shares.size(), 3u);
  EXPECT_LT(shares.back(), 0.5);
  EXPECT_GT(shares.back(), shares.front());
}

TEST(BootstrapDraws, UnstableDrawsStayUncorrectedAndAreCounted) {
  // A root near one: some draws leave the unit circle, and their number is that of the draws with such a root.
  SeriesList walk(2, std::vector<double>(60));
  RandomStream random(4, 0);
  for (std::size_t t = 1; t < 60; ++t) {
    for (auto& one : walk) one[t] = 0.97 * one[t - 1] + random.normal();
  }
  const KnownTerms constant;
  const Setting setting = settingOf(fitted(walk, 1), &constant);
  ASSERT_GT(setting.corrected.share, 0.0);
  BootstrapDraws draws(setting.plan, {.replications = 500});
  ASSERT_TRUE(draws.run());
  std::size_t unstable = 0;
  for (std::size_t b = 0; b < 500; ++b) unstable += largestModulus(draws.lagMatrices(b)) < 1.0 ? 0u : 1u;
  EXPECT_EQ(draws.uncorrected(), unstable);
  EXPECT_GT(unstable, 0u);
}

TEST(ResponseBands, ArePercentilesOfTheDrawsResponses) {
  const Setting setting = growthSetting();
  BootstrapDraws draws(setting.plan, {.replications = 200});
  ASSERT_TRUE(draws.run());
  const std::vector<ImpulseOptions> cases = {
      {},
      {.unit = true, .cumulative = {false, true, false}, .order = {2, 0, 1}},
      {.type = ShockType::generalized},
      {.type = ShockType::reduced, .cumulative = {true, true, true}},
  };
  for (const ImpulseOptions& options : cases) {
    const Band band = responseBands(draws, options, 4, {.levels = {90}}).value()[0];
    std::vector<double> values;  // of series 1 to shock 2 at horizon 3
    for (std::size_t b = 0; b < 200; ++b) {
      FittedVar fit = setting.model.fit;
      const Matrix lags = joined(draws.lagMatrices(b));
      for (std::size_t i = 0; i < 3; ++i) std::ranges::copy(lags.row(i), fit.coefficients.row(i).subspan(1).begin());
      // Residuals with the covariance of the draw: n - m times S on as many rows.
      fit.residuals.assign(3, std::vector<double>(200));
      for (std::size_t i = 0; i < 9; ++i) fit.residuals[i / 3][i % 3] = draws.model(b).root[i] * std::sqrt(193.0);
      values.push_back(impulseResponses(fit, options, 4).value()[3](1, 2));
    }
    std::ranges::sort(values);
    EXPECT_NEAR(band.lower[3](1, 2), percentile(values, 0.05), 1e-12);
    EXPECT_NEAR(band.upper[3](1, 2), percentile(values, 0.95), 1e-12);
  }
}

TEST(ShareBands, HoldTheSharesOfTheDraws) {
  const Setting setting = growthSetting();
  BootstrapDraws draws(setting.plan, {.replications = 200});
  ASSERT_TRUE(draws.run());
  const std::vector<std::size_t> order = {1, 2, 0};
  for (const ShareType type : {ShareType::orthogonal, ShareType::generalized, ShareType::normalised}) {
    const Band band = shareBands(draws, type, order, 4, {.levels = {90}}).value()[0];
    std::vector<double> values;
    for (std::size_t b = 0; b < 200; ++b) {
      Matrix root(3, 3);
      std::ranges::copy(draws.model(b).root, root.values.begin());
      const Matrix covariance = multiplyTransposed(root, root);
      const std::vector<Matrix> phi = movingAverage(draws.lagMatrices(b), 3, 4);
      const Responses orthogonal = responsesTo(phi, {orderedCholesky(covariance, order).value()});
      const Responses generalized = responsesTo(phi, {generalizedImpact(covariance)});
      std::vector<Matrix> shares =
          type == ShareType::orthogonal ? varianceShares(orthogonal) : generalizedShares(generalized, orthogonal);
      if (type == ShareType::normalised) shares = normalisedShares(shares);
      values.push_back(shares[3](2, 1));
    }
    std::ranges::sort(values);
    EXPECT_NEAR(band.lower[3](2, 1), percentile(values, 0.05), 1e-12);
    EXPECT_NEAR(band.upper[3](2, 1), percentile(values, 0.95), 1e-12);
  }
}

SeriesList longSample(std::size_t length) {
  SeriesList series(2, std::vector<double>(length));
  RandomStream random(11, 0);
  for (std::size_t t = 1; t < length; ++t) {
    const double first = random.normal();
    series[0][t] = 0.6 * series[0][t - 1] + 0.2 * series[1][t - 1] + first;
    series[1][t] = -0.3 * series[0][t - 1] + 0.5 * series[1][t - 1] + 0.5 * first + random.normal();
  }
  return series;
}

TEST(Bootstrap, ALongSampleBringsItToTheDeltaMethodAndToAnalyticLimits) {
  const KnownTerms constant;
  const Setting setting = settingOf(fitted(longSample(4000), 1), &constant);
  BootstrapDraws draws(setting.plan, {.replications = 4000, .jobs = 2});
  ASSERT_TRUE(draws.run());
  const Band band = responseBands(draws, {}, 5, {}).value()[0];
  const Responses errors = responseErrors(setting.model.fit, {}, 5).value();
  for (std::size_t h = 0; h <= 5; ++h) {
    for (std::size_t cell = 0; cell < 4; ++cell) {
      const double width = band.upper[h].values[cell] - band.lower[h].values[cell];
      // A percentile of 4,000 draws has an error of 3 %; two standard errors of it beside a little curvature.
      EXPECT_NEAR(width, 2 * 1.96 * errors[h].values[cell], 0.08 * width + 1e-12) << h << " " << cell;
    }
  }
  Matrix known(6, 1);
  std::ranges::fill(known.values, 1.0);
  const Band future = forecastBands(draws, setting.model.series, known, {}).value()[0];
  const auto analytic = analyticForecast(setting.model.fit, setting.model.sample(), 6, &constant).value();
  for (std::size_t h = 0; h < 6; ++h) {
    for (std::size_t i = 0; i < 2; ++i) {
      const double width = 2 * 1.96 * analytic.standardErrors(h, i);
      EXPECT_NEAR(future.lower[h](i, 0), analytic.values(h, i) - width / 2, 0.05 * width);
      EXPECT_NEAR(future.upper[h](i, 0), analytic.values(h, i) + width / 2, 0.05 * width);
    }
  }
}

TEST(ForecastBands, KnowTrendSeasonsAndLevel) {
  const std::size_t length = 400;
  SeriesList known = {trendColumn(length + 4)};
  for (auto& season : seasonColumns(4, length + 4)) known.push_back(season);
  std::vector<double> series(length, 1000.0);
  RandomStream random(2, 0);
  for (std::size_t t = 1; t < length; ++t) {
    series[t] = 500 + 0.5 * series[t - 1] + 3 * known[0][t] + 50 * known[2][t] + random.normal();
  }
  const KnownTerms terms{2, 4};
  const Setting setting = settingOf(fitted({series}, 1, true, known), &terms);
  BootstrapDraws draws(setting.plan, {.replications = 1000});
  ASSERT_TRUE(draws.run());
  Matrix future(4, 5);
  for (std::size_t h = 0; h < 4; ++h) {
    future(h, 0) = 1.0;
    for (std::size_t j = 0; j < 4; ++j) future(h, 1 + j) = known[j][length + h];
  }
  const Band band = forecastBands(draws, setting.model.series, future, {.levels = {90}}).value()[0];
  const auto analytic = analyticForecast(setting.model.fit, setting.model.sample(), 4, &terms).value();
  for (std::size_t h = 0; h < 4; ++h) {
    const double margin = 1.645 * analytic.standardErrors(h, 0);  // about 2; seasons differ by 50
    EXPECT_NEAR(band.lower[h](0, 0), analytic.values(h, 0) - margin, 0.2 * margin);
    EXPECT_NEAR(band.upper[h](0, 0), analytic.values(h, 0) + margin, 0.2 * margin);
  }
}

TEST(Percentiles, OfType7AndTheirLeastNumber) {
  std::vector<double> values = {4, 1, 3, 2, 5};
  const std::vector<double> levels = {50, 90};
  const auto limits = percentileLimits(values, levels);
  EXPECT_NEAR(limits[0].lower, 2.0, kRounding);
  EXPECT_NEAR(limits[0].upper, 4.0, kRounding);
  EXPECT_NEAR(limits[1].lower, 1.2, kRounding);
  EXPECT_NEAR(limits[1].upper, 4.8, kRounding);
  EXPECT_TRUE(sufficesFor(200, 95));
  EXPECT_FALSE(sufficesFor(199, 95));
  EXPECT_FALSE(responseBands(BootstrapDraws(growthSetting().plan, {.replications = 199}), {}, 2, {}));
}

TEST(PathLimits, HoldTheAskedShareOfWholePaths) {
  // Two independent points: draws 1..B at the first, a shuffle at the second.
  constexpr std::size_t kDraws = 1000;
  std::vector<double> draws(2 * kDraws);
  for (std::size_t b = 0; b < kDraws; ++b) {
    draws[2 * b] = static_cast<double>(b + 1);
    draws[2 * b + 1] = static_cast<double>((b * 367) % kDraws + 1);
  }
  const auto limits = pathLimits(draws, 2, 90).value();
  std::size_t inside = 0;
  for (std::size_t b = 0; b < kDraws; ++b) {
    bool holds = true;
    for (std::size_t point = 0; point < 2; ++point) {
      const double value = draws[2 * b + point];
      holds = holds && limits[point].lower <= value && value <= limits[point].upper;
    }
    inside += holds ? 1 : 0;
  }
  EXPECT_GE(inside, 900u);
  EXPECT_LT(inside, 910u);
  // Independent points need limits of about sqrt(.9) each.
  EXPECT_NEAR(limits[0].lower, kDraws * (1 - std::sqrt(0.9)) / 2, 6);
  EXPECT_EQ(limits[0].lower + limits[0].upper, kDraws + 1.0);
  EXPECT_FALSE(pathLimits(draws, 2, 99.5));
  // A point at which all draws agree leaves the others as they are.
  std::vector<double> padded;
  for (std::size_t b = 0; b < kDraws; ++b) padded.insert(padded.end(), {draws[2 * b], 7.0, draws[2 * b + 1]});
  EXPECT_EQ(pathLimits(padded, 3, 90).value()[2].lower, limits[1].lower);
}

}  // namespace
}  // namespace engine
