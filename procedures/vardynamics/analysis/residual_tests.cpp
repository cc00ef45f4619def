#include "procedures/vardynamics/analysis/residual_tests.h"

#include <algorithm>
#include <cstdint>

#include "engine/arithmetic/plain_units.h"
#include "engine/diagnostics/portmanteau.h"
#include "engine/diagnostics/residual_tests.h"

namespace vardynamics {
namespace {

constexpr std::int32_t kPortmanteauLags = 12;
constexpr std::int32_t kLagrangeLags = 4;
constexpr std::int32_t kArchLags = 4;

std::size_t lagsOr(const TestSettings& settings, std::int32_t byDefault) {
  return static_cast<std::size_t>(settings.lags.value_or(byDefault));
}

std::size_t portmanteauLags(const TestSettings& settings, std::size_t lag) {
  return settings.lags ? lagsOr(settings, 0) : std::max<std::size_t>(kPortmanteauLags, lag + 1);
}

ArchTests testArch(const SeriesList& residuals, std::size_t lags) {
  ArchTests tests{.joint = {lags, engine::multivariateArch(residuals, lags)}, .equations = {}};
  for (const auto& equation : residuals) tests.equations.push_back({lags, engine::univariateArch(equation, lags)});
  return tests;
}

// On h - p degrees of freedom, as of a residual of p estimated lags. engine::ljungBox takes small values for none.
LaggedChiSquared testLjungBox(const std::vector<double>& residuals, std::size_t lags, std::size_t lag) {
  LaggedChiSquared result{lags};
  if (lags <= lag) return result;
  if (const auto box = engine::ljungBox(engine::inPlainUnits(residuals), static_cast<std::int32_t>(lags))) {
    result.test = engine::chiSquaredTest(box->statistic, static_cast<double>(lags - lag));
  }
  return result;
}

NormalityTests testNormality(const SeriesList& residuals, std::size_t lags, std::size_t lag) {
  NormalityTests tests{.doornikHansen = engine::doornikHansen(residuals),
                       .cholesky = engine::choleskyNormality(residuals),
                       .equations = {}};
  for (const auto& equation : residuals) {
    tests.equations.push_back(
        {engine::shapeOf(equation), engine::jarqueBeraTest(equation), testLjungBox(equation, lags, lag)});
  }
  return tests;
}

std::vector<std::vector<UnitRootTests>> testUnitRoots(const SeriesList& series) {
  using enum engine::UnitRootTerms;
  std::vector<std::vector<UnitRootTests>> tests;
  for (const auto& one : series) {
    auto& ofSeries = tests.emplace_back();
    for (const auto terms : {constant, constantAndTrend}) {
      ofSeries.push_back({terms, engine::augmentedDickeyFuller(one, terms), engine::kpss(one, terms)});
    }
  }
  return tests;
}

}  // namespace

ResidualTests testResiduals(const Model& model, const ModelData& data, const TestSettings& settings) {
  const SeriesList& residuals = model.fit.residuals;
  const std::size_t lags = portmanteauLags(settings, model.lag());
  ResidualTests tests;
  if (settings.portmanteau) {
    tests.portmanteau = LaggedChiSquared{lags, engine::portmanteau(residuals, model.lag(), lags)};
  }
  if (settings.lagrange) {
    const auto regressors = engine::regressorColumns(model.fit, {data.sample.endogenous, data.known});
    const std::size_t asked = lagsOr(settings, kLagrangeLags);
    tests.lagrange = SerialCorrelation{asked, engine::breuschGodfrey(residuals, regressors, asked)};
  }
  if (settings.arch) tests.arch = testArch(residuals, lagsOr(settings, kArchLags));
  if (settings.normality) tests.normality = testNormality(residuals, lags, model.lag());
  if (settings.unitRoots) tests.unitRoots = testUnitRoots(data.sample.endogenous);
  return tests;
}

}  // namespace vardynamics
