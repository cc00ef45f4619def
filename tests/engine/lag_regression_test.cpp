// Data that take digits, and the limits at which the regressions change their precision or refuse.

#include "engine/regression/lag_regression.h"

#include <gtest/gtest.h>

#include <functional>

#include "engine/regression/var_estimation.h"
#include "tests/engine/exact_fit.h"
#include "tests/engine/numeric_support.h"

namespace engine {
namespace {

struct Data {
  SeriesList y = noiseSeries(3, 120);
  SeriesList x = {noise(41, 120), noise(42, 120)};
};

struct OddCase {
  const char* what;
  std::function<void(Data&)> spoil;
};

// Each of these had wrong digits, or was refused, when the centre was a mean over all rows, sums of lagged products
// were differences, or columns were not brought to one unit.
const OddCase kOddCases[] = {
    {"nothing", [](Data&) {}},
    {"huge value in the first row", [](Data& data) { data.y[0][0] = 1e18; }},
    {"huger value in the first row", [](Data& data) { data.y[0][0] = 1e100; }},
    {"huge value in the middle", [](Data& data) { data.y[1][60] = -1e30; }},
    {"huge value in the last row but two", [](Data& data) { data.y[0][117] = 1e16; }},
    {"huge value in the last row but one", [](Data& data) { data.y[0][118] = 1e12; }},
    {"huge value in the last row", [](Data& data) { data.y[2][119] = 1e20; }},
    {"fill code in unused rows", [](Data& data) { data.x[0][0] = data.x[0][2] = 1e30; }},
    {"no number in unused rows", [](Data& data) { data.x[1][1] = std::nan(""); }},
    {"fill code in a used row", [](Data& data) { data.x[0][50] = 1e100; }},
    {"unit of 1e150",
     [](Data& data) {
       for (double& value : data.x[1]) value *= 1e150;
     }},
    {"unit of 1e-300",
     [](Data& data) {
       for (double& value : data.x[1]) value *= 1e-300;
     }},
    {"level of 1e7",
     [](Data& data) {
       for (double& value : data.y[1]) value += 1e7;
     }},
    {"level of 1e14",
     [](Data& data) {
       for (double& value : data.x[1]) value += 1e14;
     }},
    {"pair that differs by a millionth",
     [](Data& data) {
       for (std::size_t t = 0; t < 120; ++t) data.x[1][t] = data.x[0][t] + 1e-6 * data.x[1][t];
     }},
};

double worstError(const std::vector<Exact>& truth, const std::vector<double>& values) {
  double worst = 0.0;
  for (std::size_t j = 0; j < truth.size(); ++j) {
    worst = std::max(worst, static_cast<double>(abs(Exact(values[j]) / truth[j] - 1)));
  }
  return worst;
}

// The exact solution, rounded; standard errors have the rounding of residuals in them.
TEST(LagRegression, OddDataCostNoDigits) {
  for (const OddCase& one : kOddCases) {
    SCOPED_TRACE(one.what);
    Data data;
    one.spoil(data);
    const VarEstimation estimation = estimateVar({data.y, data.x}, {.minLag = 1, .maxLag = 3});
    ASSERT_FALSE(estimation.error);
    const ExactFit truth = fitExactly(data.y, data.x, 3);
    for (std::size_t i = 0; i < data.y.size(); ++i) {
      const LagEstimate& estimate = estimation.lags[2];
      const double variance = residualVariance(estimate.moments, i, std::ssize(estimate.coefficients[i]));
      std::vector<double> errors;
      for (std::size_t j = 0; j < estimate.coefficients[i].size(); ++j) {
        errors.push_back(standardError(variance, estimate.inverseDiagonal, j));
      }
      EXPECT_LT(worstError(truth.coefficients[i], estimate.coefficients[i]), 2e-16);
      EXPECT_LT(worstError(truth.standardErrors[i], errors), 1e-14);
      const double deviation = std::sqrt(estimate.covariance[i][i]);
      for (std::size_t r = 0; r < truth.residuals[i].size(); ++r) {
        const auto expected = static_cast<double>(truth.residuals[i][r]);
        const double rounding = 1.2e-16 * std::abs(expected) + 1e-17 * deviation;
        EXPECT_LT(std::abs(static_cast<double>(truth.residuals[i][r] - estimate.residuals[i][r])), rounding);
      }
    }
  }
}

TEST(PlacedSeries, CentreIsTypicalOfAllRowsAndTheUnitTheLargestDistance) {
  std::vector<double> values(2000, 5.0);
  for (std::size_t t = 300; t < 2000; ++t) values[t] = 100.0 + static_cast<double>(t % 7);
  values[1999] = -900.0;
  const Placement placement = placementOf(values, true);
  EXPECT_NEAR(placement.center, 103.0, 1.0);
  EXPECT_EQ(placement.exponent, 10);  // 2^10 is the least power of two above 1003
  EXPECT_EQ(placementOf(values, false).center, 0.0);
}

// Square waves of periods 4 and 2 and of half the length: orthogonal to one another and to the constant.
std::vector<double> wave(std::size_t length, std::size_t half) {
  std::vector<double> values(length);
  for (std::size_t t = 0; t < length; ++t) values[t] = t / half % 2 == 0 ? 1.0 : -1.0;
  return values;
}

// x2 = x1 + share x2', two regressors with the correlation 1 / sqrt(1 + share^2): the reciprocal condition is
// share^2 / 4 for a small share. With the constant and no lag, k is 3.
SeriesList nearPair(std::size_t length, double share) {
  SeriesList x = {wave(length, 2), wave(length, 1)};
  for (std::size_t t = 0; t < length; ++t) x[1][t] = x[0][t] + share * x[1][t];
  return x;
}

TEST(LagRegression, RefusesCollinearRegressorsAtTheBoundInEitherPrecision) {
  for (const std::size_t length : {64u, 131072u}) {
    const SeriesList y = {noise(1, length)};
    const double bound = 2.0 * std::sqrt(3 * 2.2e-16);
    for (const double share : {1.02 * bound, 0.98 * bound}) {
      const SeriesList x = nearPair(length, share);
      const LagFit fit = LagRegression(y, x, {.maxLag = 0, .firstRow = 0}).fit(0);
      EXPECT_EQ(fit.singular, share < bound);
      EXPECT_NEAR(fit.reciprocalCondition / (share * share / 4), 1.0, 1e-6);  // the rounding of x2 in share
    }
  }
}

// Values that differ by the last bit are one value; 4 bits more are a spread.
TEST(LagRegression, ConstantColumnIsOneThatDiffersByRounding) {
  for (const double spread : {0.0, 0x1p-52, 0x1p-48}) {
    SeriesList x = {wave(64, 1)};
    for (double& value : x[0]) value = 1.0 + (value > 0.0 ? spread : 0.0);
    const SeriesList y = {noise(1, 64)};
    EXPECT_EQ(LagRegression(y, x, {.maxLag = 0, .firstRow = 0}).fit(0).singular, spread < 0x1p-50) << spread;
    EXPECT_FALSE(LagRegression(y, x, {.maxLag = 0, .firstRow = 0, .constant = false}).fit(0).singular);
  }
}

bool inTwicePrecision(const SeriesList& y, const SeriesList& x) {
  LagRegression regression(y, x, {.maxLag = 0, .firstRow = 0});
  regression.fit(0);
  return regression.inTwicePrecision();
}

TEST(LagRegression, TwiceThePrecisionWhereDoublesHaveTooFewDigits) {
  constexpr std::size_t kLong = 131072;  // 3 regressors: above kSmallWork
  // The centre of a square wave is a value of it, which leaves half of its squares about the mean.
  const double bound = 2.0 * std::sqrt(2.0 * 1.11e-3);
  EXPECT_FALSE(inTwicePrecision({noise(1, kLong)}, nearPair(kLong, 1.05 * bound)));
  EXPECT_TRUE(inTwicePrecision({noise(1, kLong)}, nearPair(kLong, 0.95 * bound)));
  // Residuals of y = x1 + share e. In placed units y and x1 are quarters: deviations of share / sqrt(3) / 4 beside
  // terms of 2 to 2.5.
  const SeriesList x = nearPair(kLong, 1.0);
  for (const double share : {20.0, 12.0}) {
    std::vector<double> y = x[0];
    const std::vector<double> e = noise(2, kLong);
    for (std::size_t t = 0; t < kLong; ++t) y[t] += share * 1.11e-4 * e[t];
    EXPECT_EQ(inTwicePrecision({y}, x), share < 15.0);
  }
  // Small data, whatever their condition: n = 100,000 with 3 regressors is the last.
  for (const std::size_t length : {100000u, 100001u}) {
    EXPECT_EQ(inTwicePrecision({noise(1, length)}, {noise(2, length), noise(3, length)}), length == 100000u);
  }
}

// A level that hides the spread of a column does so to doubles, not to the engine: its centre takes it away.
TEST(LagRegression, LevelsAndUnitsChangeNoBitOfTheLagCoefficients) {
  SeriesList y = noiseSeries(2, 100);
  for (auto& series : y) {
    for (double& value : series) value = std::round(value * 1024);
  }
  const VarEstimation plain = estimateVar({y, {}}, {.maxLag = 2});
  for (auto& series : y) {
    for (double& value : series) value = std::ldexp(value + 0x1p40, -20);
  }
  const VarEstimation moved = estimateVar({y, {}}, {.maxLag = 2});
  for (std::size_t i = 0; i < 2; ++i) {
    for (std::size_t j = 1; j < 5; ++j) {
      EXPECT_EQ(moved.lags[1].coefficients[i][j], plain.lags[1].coefficients[i][j]);
    }
    EXPECT_EQ(moved.lags[1].residuals[i][7], std::ldexp(plain.lags[1].residuals[i][7], -20));
  }
}

}  // namespace
}  // namespace engine
