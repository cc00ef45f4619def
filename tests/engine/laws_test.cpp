// What holds for every model, tried on a thousand random ones. The seed is new every time and printed with what fails;
// LAWS_SEED in the environment gives it again.

#include <cstdlib>
#include <numeric>
#include <random>

#include "engine/arithmetic/philox.h"
#include "engine/diagnostics/portmanteau.h"
#include "engine/dynamics/causality.h"
#include "engine/dynamics/decompositions.h"
#include "engine/dynamics/forecast_limits.h"
#include "engine/dynamics/forecast_path.h"
#include "engine/dynamics/impulse_responses.h"
#include "engine/dynamics/lag_matrices.h"
#include "engine/dynamics/roots.h"
#include "engine/regression/var_estimation.h"
#include "tests/engine/dynamics_fixture.h"
#include "tests/engine/qr_least_squares.h"

namespace engine {
namespace {

constexpr int kModels = 1000;
constexpr std::size_t kHorizon = 4;
constexpr double kTolerance = 1e-8;

std::uint64_t seed() {
  static const char* given = std::getenv("LAWS_SEED");
  static const std::uint64_t value = given != nullptr ? std::strtoull(given, nullptr, 10) : std::random_device()();
  return value;
}

std::string whichModel(int number) {
  return "LAWS_SEED=" + std::to_string(seed()) + ", model " + std::to_string(number);
}

struct Drawn {
  SeriesList series;  // 1 to 4, of 40 to 119 values
  SeriesList known;   // none or one
  std::size_t lag = 1;
};

// Autoregressions that are stable, and now and then their sums, which are not.
Drawn drawn(RandomStream& random) {
  const std::size_t count = 1 + random.below(4);
  const std::size_t length = 40 + random.below(80);
  Drawn model{SeriesList(count, std::vector<double>(length)), {}, 1 + random.below(2)};
  Matrix slopes(count, count);
  for (double& slope : slopes.values) slope = (2 * random.uniform() - 1) * 0.9 / static_cast<double>(count);
  for (std::size_t t = 0; t < length; ++t) {
    for (std::size_t i = 0; i < count; ++i) {
      model.series[i][t] = random.normal();
      for (std::size_t j = 0; t > 0 && j < count; ++j) model.series[i][t] += slopes(i, j) * model.series[j][t - 1];
    }
  }
  if (random.below(4) == 0) std::partial_sum(model.series[0].begin(), model.series[0].end(), model.series[0].begin());
  if (random.below(2) == 0) model.known.push_back(noise(random.word(), length + kHorizon));
  return model;
}

// Series i of the other model is scale[i] * series from[i] + shift[i] of the first.
struct Change {
  std::vector<std::size_t> from;
  std::vector<double> scale;
  std::vector<double> shift;
};

Change change(RandomStream& random, std::size_t count) {
  Change drawnChange{std::vector<std::size_t>(count), std::vector<double>(count), std::vector<double>(count)};
  std::iota(drawnChange.from.begin(), drawnChange.from.end(), 0);
  for (std::size_t i = count; i > 1; --i) std::swap(drawnChange.from[i - 1], drawnChange.from[random.below(i)]);
  for (double& scale : drawnChange.scale) scale = std::pow(10.0, 8 * random.uniform() - 4);
  for (std::size_t i = 0; i < count; ++i) drawnChange.shift[i] = 20 * random.normal() * drawnChange.scale[i];
  return drawnChange;
}

SeriesList changed(const SeriesList& series, const Change& by) {
  SeriesList result(series.size());
  for (std::size_t i = 0; i < series.size(); ++i) {
    for (const double value : series[by.from[i]]) result[i].push_back(by.scale[i] * value + by.shift[i]);
  }
  return result;
}

void expectNear(double seen, double wanted, double size, const char* what) {
  EXPECT_NEAR(seen, wanted, kTolerance * std::max(size, std::fabs(wanted))) << what;
}

// Element (i, j) of every matrix goes with what the change does to series i over series j.
void expectMoved(std::span<const Matrix> seen, std::span<const Matrix> plain, const Change& by, bool perColumn,
                 const char* what) {
  ASSERT_EQ(seen.size(), plain.size());
  for (std::size_t h = 0; h < seen.size(); ++h) {
    for (std::size_t i = 0; i < by.from.size(); ++i) {
      for (std::size_t j = 0; j < by.from.size(); ++j) {
        const double factor = by.scale[i] / (perColumn ? by.scale[j] : 1.0);
        expectNear(seen[h](i, j) / factor, plain[h](by.from[i], by.from[j]), 1.0, what);
      }
    }
  }
}

void expectSameTests(const Example& seen, const Example& plain, const Change& by) {
  const GrangerCausality pairs = grangerCausality(plain.fit, plain.fit.lag);
  const GrangerCausality moved = grangerCausality(seen.fit, seen.fit.lag);
  for (std::size_t i = 0; i < by.from.size() && by.from.size() > 1; ++i) {
    expectNear(moved.othersOnEach[i]->statistic, pairs.othersOnEach[by.from[i]]->statistic, 1.0, "others on each");
    expectNear(moved.eachOnOthers[i]->statistic, pairs.eachOnOthers[by.from[i]]->statistic, 1.0, "each on others");
    expectNear(instantaneousCausality(seen.fit, i)->statistic, instantaneousCausality(plain.fit, by.from[i])->statistic,
               1.0, "instantaneous");
    for (std::size_t j = 0; j < by.from.size(); ++j) {
      if (i == j) continue;
      expectNear(moved.pairs[i][j]->statistic, pairs.pairs[by.from[i]][by.from[j]]->statistic, 1.0, "Granger");
    }
  }
  expectNear(portmanteau(seen.fit.residuals, seen.fit.lag, 8)->statistic,
             portmanteau(plain.fit.residuals, plain.fit.lag, 8)->statistic, 1.0, "portmanteau");
  const auto roots = rootsOf(lagMatrices(plain.fit)).value();
  const auto movedRoots = rootsOf(lagMatrices(seen.fit)).value();
  for (std::size_t i = 0; i < roots.size(); ++i) expectNear(movedRoots[i].modulus, roots[i].modulus, 1.0, "root");
}

void expectSameShocks(const Example& seen, const Example& plain, const Change& by) {
  ImpulseOptions options;
  for (std::size_t i = 0; i < by.from.size(); ++i) options.order.push_back(i);
  ImpulseOptions moved = options;
  for (std::size_t i = 0; i < by.from.size(); ++i) moved.order[by.from[i]] = i;
  const Responses responses = impulseResponses(plain.fit, options, kHorizon).value();
  const Responses movedResponses = impulseResponses(seen.fit, moved, kHorizon).value();
  expectMoved(movedResponses, responses, by, false, "response");
  const Change unitless{by.from, std::vector<double>(by.from.size(), 1.0), {}};
  expectMoved(varianceShares(movedResponses), varianceShares(responses), unitless, false, "share");
}

void expectSameForecasts(const Example& seen, const Example& plain, const Change& by) {
  const KnownTerms constant;
  const KnownTerms* terms = plain.known.empty() ? &constant : nullptr;
  const auto wanted = analyticForecast(plain.fit, plain.sample(), kHorizon, terms).value();
  const auto moved = analyticForecast(seen.fit, seen.sample(), kHorizon, terms).value();
  for (std::size_t h = 0; h < kHorizon; ++h) {
    for (std::size_t i = 0; i < by.from.size(); ++i) {
      const double error = wanted.standardErrors(h, by.from[i]);
      expectNear((moved.values(h, i) - by.shift[i]) / by.scale[i], wanted.values(h, by.from[i]), error, "forecast");
      expectNear(moved.standardErrors(h, i) / by.scale[i], error, error, "standard error");
    }
  }
}

TEST(Laws, UnitsOriginsAndOrderOfTheSeriesChangeNothingElse) {
  for (int number = 0; number < kModels && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(whichModel(number));
    RandomStream random(seed(), static_cast<std::uint64_t>(number));
    const Drawn model = drawn(random);
    const Change by = change(random, model.series.size());
    const Example plain = fitted(model.series, model.lag, true, model.known);
    const Example seen = fitted(changed(model.series, by), model.lag, true, model.known);
    expectMoved(lagMatrices(seen.fit), lagMatrices(plain.fit), by, true, "lag coefficient");
    expectSameTests(seen, plain, by);
    expectSameShocks(seen, plain, by);
    expectSameForecasts(seen, plain, by);
  }
}

// The likelihood changes by the units alone, so that every criterion chooses the same lag.
TEST(Laws, UnitsMoveTheLikelihoodOfEveryLagByTheSame) {
  for (int number = 0; number < kModels && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(whichModel(number));
    RandomStream random(seed(), static_cast<std::uint64_t>(number));
    const Drawn model = drawn(random);
    const Change by = change(random, model.series.size());
    const VarOptions options{.maxLag = 4, .residuals = number % 2 == 0 ? KeptResiduals::all : KeptResiduals::none};
    const VarEstimation plain = estimateVar({model.series, {}}, options);
    const VarEstimation seen = estimateVar({changed(model.series, by), {}}, options);
    ASSERT_EQ(seen.lags.size(), plain.lags.size());
    double units = 0.0;
    for (const double scale : by.scale) units += std::log(scale);
    for (std::size_t l = 0; l < plain.lags.size(); ++l) {
      expectNear(seen.lags[l].logLikelihood + static_cast<double>(plain.rows) * units, plain.lags[l].logLikelihood,
                 static_cast<double>(plain.rows), "log-likelihood");
    }
  }
}

TEST(Laws, EveryEquationAloneIsLeastSquaresByQr) {
  for (int number = 0; number < kModels && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(whichModel(number));
    RandomStream random(seed(), static_cast<std::uint64_t>(number));
    Drawn model = drawn(random);
    const bool constant = random.below(3) > 0;
    const Example seen = fitted(model.series, model.lag, constant, model.known);
    for (auto& column : model.known) column.resize(model.series.front().size());
    const QrFit wanted = fitByQr(designMatrix(model.series, model.known, model.lag, model.lag, constant),
                                 targetMatrix(model.series, model.lag));
    for (std::size_t i = 0; i < seriesCount(seen.fit); ++i) {
      for (std::size_t j = 0; j < regressorCount(seen.fit); ++j) {
        const auto row = static_cast<Eigen::Index>(j);
        const auto column = static_cast<Eigen::Index>(i);
        expectNear(seen.fit.coefficients(i, j), static_cast<double>(wanted.coefficients(row, column)),
                   static_cast<double>(wanted.standardErrors(row, column)), "coefficient");
      }
    }
  }
}

// Two models side by side, each blind to the other, forecast as each does alone.
TEST(Laws, BlocksForecastAsEachAlone) {
  for (int number = 0; number < kModels && !testing::Test::HasFailure(); ++number) {
    SCOPED_TRACE(whichModel(number));
    RandomStream random(seed(), static_cast<std::uint64_t>(number));
    const Drawn model = drawn(random);
    const std::size_t count = model.series.size();
    const Example alone = fitted(model.series, model.lag);
    SeriesList twice = model.series;
    for (const auto& series : model.series) twice.emplace_back(series.rbegin(), series.rend());
    const Example other = fitted({twice.begin() + static_cast<std::ptrdiff_t>(count), twice.end()}, model.lag);
    FittedVar both;
    both.lag = model.lag;
    both.coefficients = Matrix(2 * count, 1 + 2 * count * model.lag);
    for (std::size_t i = 0; i < count; ++i) {
      both.coefficients(i, 0) = alone.fit.coefficients(i, 0);
      both.coefficients(count + i, 0) = other.fit.coefficients(i, 0);
      for (std::size_t j = 0; j < count * model.lag; ++j) {
        const std::size_t place = 1 + (j / count) * 2 * count + j % count;
        both.coefficients(i, place) = alone.fit.coefficients(i, 1 + j);
        both.coefficients(count + i, place + count) = other.fit.coefficients(i, 1 + j);
      }
    }
    const std::size_t origin = model.series.front().size();
    const Matrix seen = forecastPath(both, {twice, {}}, origin, kHorizon).values;
    const Matrix first = forecastPath(alone.fit, alone.sample(), origin, kHorizon).values;
    const Matrix second = forecastPath(other.fit, other.sample(), origin, kHorizon).values;
    for (std::size_t h = 0; h < kHorizon; ++h) {
      for (std::size_t i = 0; i < count; ++i) {
        expectNear(seen(h, i), first(h, i), 1.0, "forecast of the first block");
        expectNear(seen(h, count + i), second(h, i), 1.0, "forecast of the second block");
      }
    }
  }
}

}  // namespace
}  // namespace engine
