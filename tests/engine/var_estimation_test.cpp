#include "engine/regression/var_estimation.h"

#include <gtest/gtest.h>

#include "tests/engine/numeric_support.h"
#include "tests/engine/qr_least_squares.h"

namespace engine {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

// In standard errors: what computation in doubles may leave.
constexpr double kInDoubles = 1e-11;
// Relative: results in twice the precision are the exact ones rounded, and the QR in long double errs by some 1e-18
// times the data's condition number.
constexpr double kCorrectlyRounded = 1e-15;

struct DataCase {
  const char* name;
  SeriesList endogenous, exogenous;
  bool constant = true;
  std::int32_t firstRow = 4;
  double tolerance = kCorrectlyRounded;
};

// The long ones are computed in doubles.
std::vector<DataCase> dataCases() {
  SeriesList units = noiseSeries(2, 150);
  for (double& value : units[0]) value *= 1e13;
  SeriesList level = noiseSeries(2, 150);
  for (double& value : level[1]) value += 100.0;
  SeriesList spiked = noiseSeries(9, 2500);
  spiked[0][2498] = 1e4;
  const SeriesList noisy = {noise(21, 150), noise(22, 150)};
  return {{"one series", noiseSeries(1, 90), {}},
          {"units far apart", units, {}},
          {"level", level, noisy},
          {"without a constant", noiseSeries(2, 150), noisy, false},
          {"no regressor but lags", noiseSeries(3, 150), {}, false},
          {"a later first row", noiseSeries(2, 150), noisy, true, 9},
          {"nine series", noiseSeries(9, 2500), {}, true, 4, kInDoubles},
          {"long, without a constant", noiseSeries(9, 2500), {noise(19, 2500)}, false, 6, kInDoubles},
          {"long, exogenous", noiseSeries(10, 2000), {noise(19, 2000), noise(20, 2000)}, true, 4, kInDoubles},
          {"outlier in the last rows", spiked, {}, true, 4, kInDoubles}};
}

void expectFit(const DataCase& one, const LagEstimate& estimate) {
  const auto firstRow = static_cast<std::size_t>(one.firstRow);
  const QrFit truth = fitByQr(
      designMatrix(one.endogenous, one.exogenous, firstRow, static_cast<std::size_t>(estimate.lag), one.constant),
      targetMatrix(one.endogenous, firstRow));
  ASSERT_EQ(estimate.coefficients.size(), one.endogenous.size());
  for (Eigen::Index i = 0; i < truth.coefficients.cols(); ++i) {
    const auto equation = static_cast<std::size_t>(i);
    ASSERT_EQ(std::ssize(estimate.coefficients[equation]), truth.coefficients.rows());
    const double variance = residualVariance(estimate.moments, equation, truth.coefficients.rows());
    for (Eigen::Index j = 0; j < truth.coefficients.rows(); ++j) {
      const auto place = static_cast<std::size_t>(j);
      const auto error = static_cast<double>(truth.standardErrors(j, i));
      EXPECT_NEAR(estimate.coefficients[equation][place], static_cast<double>(truth.coefficients(j, i)),
                  one.tolerance * std::max(error, std::abs(static_cast<double>(truth.coefficients(j, i)))));
      // With a constant the mean residual is subtracted from the variance, which is not exactly 0.
      EXPECT_NEAR(standardError(variance, estimate.inverseDiagonal, place), error, 10 * one.tolerance * error);
    }
    const double deviation = std::sqrt(static_cast<double>(truth.residuals.col(i).squaredNorm()) /
                                       static_cast<double>(truth.residuals.rows()));
    for (Eigen::Index r = 0; r < truth.residuals.rows(); ++r) {
      const auto expected = static_cast<double>(truth.residuals(r, i));
      EXPECT_NEAR(estimate.residuals[equation][static_cast<std::size_t>(r)], expected, one.tolerance * deviation);
    }
    EXPECT_NEAR(estimate.covariance[equation][0],
                static_cast<double>(truth.residuals.col(i).dot(truth.residuals.col(0)) / truth.residuals.rows()),
                10 * one.tolerance * deviation * std::sqrt(estimate.covariance[0][0]));
  }
}

TEST(EstimateVar, AgreesWithEigensQrAtEveryLagFromZeroOn) {
  for (const DataCase& one : dataCases()) {
    SCOPED_TRACE(one.name);
    const VarEstimation estimation =
        estimateVar({one.endogenous, one.exogenous},
                    {.minLag = 0, .maxLag = 4, .constant = one.constant, .firstRow = one.firstRow});
    ASSERT_FALSE(estimation.error);
    ASSERT_THAT(estimation.lags, SizeIs(5));
    for (const LagEstimate& estimate : estimation.lags) expectFit(one, estimate);
  }
}

// (Z'Z)^-1 in the order constant, lags, known columns, with units and levels that the computation never sees.
TEST(EstimateVar, HandsOverTheFittedModelWithItsFullInverse) {
  for (const bool constant : {true, false}) {
    SeriesList y = noiseSeries(2, 80);
    for (double& value : y[1]) value = 1e3 * value + 5e3;
    const SeriesList x = {noise(31, 80)};
    const VarEstimation estimation = estimateVar(
        {y, x},
        {.minLag = 1, .maxLag = 3, .constant = constant, .residuals = KeptResiduals::last, .fullInverse = true});
    EXPECT_THAT(estimation.lags[0].residuals, IsEmpty());
    const FittedVar fit = fittedVar(estimation, 3);
    const QrFit truth = fitByQr(designMatrix(y, x, 3, 3, constant), targetMatrix(y, 3));
    ASSERT_EQ(std::ssize(fit.residuals[1]), truth.residuals.rows());
    EXPECT_EQ(fit.firstRow, 3u);
    EXPECT_EQ(fit.constant, constant);
    for (Eigen::Index i = 0; i < truth.inverse.rows(); ++i) {
      const auto row = static_cast<std::size_t>(i);
      EXPECT_EQ(fit.coefficients(1, row), estimation.lags.back().coefficients[1][row]);
      for (Eigen::Index j = 0; j < truth.inverse.cols(); ++j) {
        const auto expected = static_cast<double>(truth.inverse(i, j));
        const auto scale = static_cast<double>(std::sqrt(truth.inverse(i, i) * truth.inverse(j, j)));
        EXPECT_NEAR(fit.inverse(row, static_cast<std::size_t>(j)), expected, kCorrectlyRounded * scale);
      }
    }
  }
}

// Long series whose levels persist, so that little of them is left as residuals, some of them nearly the same series.
TEST(EstimateVar, JudgesLagsAlikeWithoutTheirResiduals) {
  constexpr std::size_t kLength = 40000;
  const SeriesList shocks = noiseSeries(3, kLength);
  for (const double root : {0.3, 0.9, 0.97, 0.9999}) {
    for (const double common : {0.0, 0.5, 0.999}) {
      SCOPED_TRACE(::testing::Message() << root << " " << common);
      SeriesList y(3, std::vector<double>(kLength, 50.0));
      for (std::size_t t = 1; t < kLength; ++t) {
        for (std::size_t i = 0; i < 3; ++i) {
          y[i][t] = 50.0 + root * (y[i][t - 1] - 50.0) + (1 - common) * shocks[i][t] + common * shocks[0][t];
        }
      }
      const VarEstimation all = estimateVar({y, {}}, {.minLag = 0, .maxLag = 3});
      const VarEstimation none = estimateVar({y, {}}, {.minLag = 0, .maxLag = 3, .residuals = KeptResiduals::none});
      ASSERT_EQ(none.lags.size(), all.lags.size());
      for (std::size_t lag = 0; lag < all.lags.size(); ++lag) {
        EXPECT_THAT(none.lags[lag].residuals, IsEmpty());
        EXPECT_EQ(none.lags[lag].coefficients, all.lags[lag].coefficients);
        EXPECT_NEAR(none.lags[lag].logDeterminant, all.lags[lag].logDeterminant, 1e-12);
        EXPECT_NEAR(none.lags[lag].covariance[0][0] / all.lags[lag].covariance[0][0], 1.0, 1e-12);
      }
    }
  }
}

// A variance that vanishes by its unit is refused alike.
TEST(EstimateVar, RefusesUnitsAlikeWithoutResiduals) {
  SeriesList y = noiseSeries(3, 40000);
  for (double& value : y[1]) value *= 1e-170;
  for (const KeptResiduals kept : {KeptResiduals::all, KeptResiduals::none}) {
    const auto error = estimateVar({y, {}}, {.minLag = 0, .maxLag = 3, .residuals = kept}).error;
    ASSERT_TRUE(error);
    EXPECT_EQ(error->reason, FitError::Reason::outOfRange);
  }
}

TEST(EstimateVar, ReadsLikelihoodRatioAndSelection) {
  // y(t) = 0.8 y(t-2) + noise: every criterion needs the second lag and no more.
  SeriesList y = {noise(5, 200)};
  for (std::size_t t = 2; t < 200; ++t) y[0][t] += 0.8 * y[0][t - 2];
  const VarEstimation estimation = estimateVar({y, {}}, {.minLag = 0, .maxLag = 4});
  for (const CriterionRow& row : criterionTable()) EXPECT_EQ(selectedLag(estimation, row.criterion), 2) << row.name;
  EXPECT_EQ(selectedLag(estimation, Criterion::bic, 3), 3);
  const auto ratio = likelihoodRatio(estimation, 2);
  ASSERT_TRUE(ratio);
  // n ln(V1 / V2)
  EXPECT_NEAR(ratio->statistic, 196 * std::log(estimation.lags[1].determinant / estimation.lags[2].determinant), 1e-10);
  EXPECT_EQ(ratio->degreesOfFreedom, 1);
  EXPECT_FALSE(likelihoodRatio(estimation, 0));
}

TEST(EstimateVar, CountsExogenousParametersOnRequest) {
  const SeriesList y = noiseSeries(2, 60);
  const SeriesList x = {noise(7, 60)};
  const auto akaike = [&](bool counted) {
    const VarEstimation estimation = estimateVar({y, x}, {.countExogenous = counted});
    return valueOf(Criterion::aic, estimation.lags[0].criteria);
  };
  EXPECT_NEAR(akaike(true) - akaike(false), 2.0 * 2 / 59, kRounding);  // one column in two equations
}

// Units of 1e-40: det V = 1e-160 for two series, 0 in doubles for eight.
TEST(EstimateVar, LikelihoodHoldsInAnyUnits) {
  for (const double unit : {1e-40, 1e40}) {
    SeriesList y = noiseSeries(8, 100);
    const VarEstimation plain = estimateVar({y, {}}, {});
    for (auto& series : y) {
      for (double& value : series) value *= unit;
    }
    const VarEstimation scaled = estimateVar({y, {}}, {});
    ASSERT_FALSE(scaled.error);
    EXPECT_FALSE(std::isnormal(scaled.lags[0].determinant));
    EXPECT_NEAR(scaled.lags[0].logDeterminant, plain.lags[0].logDeterminant + 16 * std::log(unit), 1e-10);
  }
}

FitError::Reason reasonOf(const SeriesList& y, const SeriesList& x, const VarOptions& options) {
  return estimateVar({y, x}, options).error.value().reason;
}

TEST(EstimateVar, TellsWhyALagCannotBeFitted) {
  using enum FitError::Reason;
  const SeriesList y = noiseSeries(2, 50);
  EXPECT_EQ(reasonOf({}, {}, {}), unevenSeries);
  EXPECT_EQ(reasonOf(y, {noise(1, 49)}, {}), unevenSeries);
  EXPECT_EQ(reasonOf({y[0], y[0]}, {}, {}), singularRegressors);
  EXPECT_EQ(reasonOf({y[0], y[0]}, {}, {.minLag = 0, .maxLag = 0}), singularCovariance);
  for (const double value : {std::numeric_limits<double>::infinity(), std::nan(""), 1e200}) {
    SeriesList odd = y;
    odd[1][20] = value;
    EXPECT_EQ(reasonOf(odd, {}, {}), outOfRange);
  }
  for (const double unit : {1e-300, 1e-160, 1e160}) {
    SeriesList scaled = y;
    for (double& value : scaled[0]) value *= unit;
    EXPECT_EQ(reasonOf(scaled, {}, {}), outOfRange) << unit;
  }
  // n = 50 - p, m = 1 + 2 p: lag 16 has 34 rows for 33 regressors.
  EXPECT_FALSE(estimateVar({y, {}}, {.minLag = 16, .maxLag = 16, .allowSingularCovariance = true}).error);
  const FitError error = estimateVar({y, {}}, {.minLag = 17, .maxLag = 17}).error.value();
  EXPECT_EQ(error.reason, insufficientObservations);
  EXPECT_EQ(error.rows, 33);
  EXPECT_EQ(error.regressors, 35);
  // Lags before the one that fails stay: 10 rows from row 40 on.
  const VarEstimation some =
      estimateVar({y, {}}, {.minLag = 1, .maxLag = 9, .firstRow = 40, .allowSingularCovariance = true});
  EXPECT_EQ(some.error.value().lag, 5);
  EXPECT_THAT(some.lags, SizeIs(4));
}

}  // namespace
}  // namespace engine
