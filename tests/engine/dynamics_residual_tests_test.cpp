// Residual tests of a model, and its roots, against other programs and against what must not change them.

#include "engine/diagnostics/arch_test.h"
#include "engine/diagnostics/breusch_godfrey.h"
#include "engine/diagnostics/normality_tests.h"
#include "engine/diagnostics/portmanteau.h"
#include "engine/dynamics/roots.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

// p-values of other programs are 1 - F: right to about 1e-16 absolutely.
constexpr double kComplement = 1e-14;

void expectTest(const ChiSquaredTest& seen, const rapidjson::Value& wanted) {
  EXPECT_TRUE(closeTo(seen.statistic, wanted["statistic"].GetDouble(), kReference));
  EXPECT_EQ(seen.degreesOfFreedom, wanted["df"][0].GetDouble());
  EXPECT_NEAR(seen.pValue, wanted["p"].GetDouble(), kComplement + kReference * seen.pValue);
}

class ResidualTestsReference : public testing::TestWithParam<std::size_t> {};

TEST_P(ResidualTestsReference, AgreeWithAnIndependentProgram) {
  const rapidjson::Document wanted = reference("us_dlog_lag" + std::to_string(GetParam()));
  const Example model = fitted(growth(), GetParam());
  const auto roots = rootsOf(lagMatrices(model.fit));
  ASSERT_TRUE(roots);
  for (rapidjson::SizeType i = 0; i < roots->size(); ++i) {
    EXPECT_TRUE(closeTo((*roots)[i].modulus, wanted["root_moduli"][i].GetDouble(), kReference));
  }
  expectTest(portmanteau(model.fit.residuals, GetParam(), 12).value(), wanted["portmanteau_adjusted_12"]);
  const auto lm = breuschGodfrey(model.fit.residuals, regressorColumns(model.fit, model.sample()), 4);
  ASSERT_EQ(lm.size(), 4u);
  expectTest(lm[3].lagrange, wanted["lm_breusch_godfrey_4"]);
  EXPECT_TRUE(closeTo(lm[3].rao.statistic, wanted["lm_edgerton_shukur_4"]["statistic"].GetDouble(), kReference));
  EXPECT_EQ(std::floor(lm[3].rao.denominatorDegrees), wanted["lm_edgerton_shukur_4"]["df"][1].GetDouble());
  expectTest(multivariateArch(model.fit.residuals, 3).value(), wanted["arch_multivariate_3"]);
  const MultivariateNormality normality = choleskyNormality(model.fit.residuals).value();
  expectTest(normality.skewness, wanted["normality_skewness"]);
  expectTest(normality.kurtosis, wanted["normality_kurtosis"]);
  expectTest(normality.joint, wanted["normality_joint"]);
}

TEST(DoornikHansen, AgreesWithGretl) {
  const Example model = fitted(growth(), 2);
  const ChiSquaredTest test = doornikHansen(model.fit.residuals).value();
  EXPECT_TRUE(closeTo(test.statistic, 69.9372949696227, kReference));
  EXPECT_TRUE(closeTo(test.pValue, 4.21175534461675e-13, kReference));
}

// Every residual test of a model, as one list.
std::vector<double> statistics(const SeriesList& series, std::size_t lag) {
  const Example model = fitted(series, lag);
  const SeriesList& e = model.fit.residuals;
  const auto lm = breuschGodfrey(e, regressorColumns(model.fit, model.sample()), 2).back();
  return {portmanteau(e, lag, 12)->statistic, lm.lagrange.statistic,       lm.rao.statistic,
          multivariateArch(e, 2)->statistic,  doornikHansen(e)->statistic, portmanteau(e, lag, 12)->pValue};
}

TEST(ResidualTests, NeitherUnitsNorOrderChangeThem) {
  // Scaling by powers of ten perturbs the data by rounding, which the levels' condition of 1e4 magnifies.
  const struct {
    SeriesList series;
    double tolerance;
  } cases[] = {{growth(), 1e-12}, {levels(), 1e-10}};
  for (const auto& [series, tolerance] : cases) {
    const std::vector<double> expected = statistics(series, 2);
    for (const SeriesList& other :
         {scaled(series, 1e-6), scaled(series, 1e6), SeriesList{series[2], series[0], series[1]}}) {
      const std::vector<double> seen = statistics(other, 2);
      for (std::size_t i = 0; i < seen.size(); ++i) EXPECT_TRUE(closeTo(seen[i], expected[i], tolerance)) << i;
    }
  }
}

TEST(ResidualTests, OfOneEquation) {
  // -1, -1, 1, 1: skewness 0, kurtosis 1, so 4 * 4 / 24; the tail on 2 degrees of freedom is exp(-x / 2).
  const ChiSquaredTest flat = jarqueBeraTest(std::vector<double>{-1e-9, 1e-9, -1e-9, 1e-9}).value();
  EXPECT_NEAR(flat.statistic, 2.0 / 3, kRounding);
  EXPECT_NEAR(flat.pValue, std::exp(-1.0 / 3), kRounding);
  // r = 0.25, -0.3 of 1, 2, 3, 4: 24 (0.0625 / 3 + 0.09 / 2) = 1.58, on 2 - 1 degrees of freedom.
  const ChiSquaredTest box = ljungBoxTest({1, 2, 3, 4}, 1, 2).value();
  EXPECT_NEAR(box.statistic, 1.58, kRounding);
  EXPECT_NEAR(box.pValue, std::erfc(std::sqrt(0.79)), kRounding);
  EXPECT_FALSE(ljungBoxTest({1, 2, 3, 4}, 2, 2));
  EXPECT_FALSE(ljungBoxTest({2, 2, 2, 2}, 0, 2));
  // The squares 1, 4, 1, 4, .. follow from the one before: R^2 = 1 on n' = 7 rows.
  const ChiSquaredTest arch = univariateArch({1, -2, -1, 2, 1, -2, -1, 2}, 1).value();
  EXPECT_NEAR(arch.statistic, 7.0, 1e-12);
  EXPECT_EQ(arch.degreesOfFreedom, 1.0);
}

TEST(ResidualTests, RefuseWhatTheyCannotTell) {
  const std::vector<double> one = noise(1, 40);
  const SeriesList dependent = {one, one};
  EXPECT_FALSE(portmanteau(dependent, 1, 5));
  EXPECT_FALSE(doornikHansen(dependent));
  EXPECT_TRUE(breuschGodfrey(dependent, {}, 2).empty());
  // K = 2: 3 products, 4 of each with their lags: n - 1 must exceed 3 * 2 + 1.
  EXPECT_FALSE(multivariateArch(noiseSeries(2, 8), 1));
  EXPECT_TRUE(multivariateArch(noiseSeries(2, 9), 1));
  // n = 20, m = 0, K = 2, M = 2 j: from j = 7 on the F has no degrees of freedom left.
  const auto lm = breuschGodfrey(noiseSeries(2, 20), {}, 12);
  EXPECT_GT(lm.back().rao.denominatorDegrees, 0.0);
  EXPECT_LT(lm.size(), 12u);
}

TEST(Roots, OfKnownPolynomials) {
  // y = 0.5 y(-1) - 0.25 y(-2): 0.25 +- 0.433 i, modulus 0.5, a cycle of 6.
  const LagMatrices cyclic = {matrixOf({{0.5}}), matrixOf({{-0.25}})};
  const auto roots = rootsOf(cyclic).value();
  EXPECT_NEAR(roots[0].modulus, 0.5, kRounding);
  EXPECT_NEAR(roots[0].imaginary, std::sqrt(0.1875), kRounding);
  EXPECT_NEAR(roots[1].imaginary, -std::sqrt(0.1875), kRounding);
  EXPECT_NEAR(roots[0].period, 6.0, 1e-13);
  const auto real = rootsOf(LagMatrices{matrixOf({{0.9, 1e8}, {0, -0.4}})}).value();
  EXPECT_NEAR(real[0].real, 0.9, kRounding);
  EXPECT_TRUE(std::isinf(real[0].period));
  EXPECT_EQ(real[1].period, 2.0);
  EXPECT_EQ(largestModulus({}), 0.0);
  EXPECT_TRUE(std::isinf(largestModulus(LagMatrices{matrixOf({{std::nan("")}})})));
}

INSTANTIATE_TEST_SUITE_P(Lags, ResidualTestsReference, testing::Values(2, 4));

}  // namespace
}  // namespace engine
