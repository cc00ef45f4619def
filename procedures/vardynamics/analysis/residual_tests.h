// The tests of the model's residuals.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/diagnostics/arch_test.h"
#include "engine/diagnostics/breusch_godfrey.h"
#include "engine/diagnostics/normality_tests.h"
#include "engine/diagnostics/unit_root_tests.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// A test on lags 1..h; absent where it could not be computed.
template <typename Test>
struct LaggedTest {
  std::size_t lags = 0;
  std::optional<Test> test = {};
};

using LaggedChiSquared = LaggedTest<engine::ChiSquaredTest>;

// j = 1.. up to the first lag that could not be computed.
struct SerialCorrelation {
  std::size_t askedLags = 0;
  std::vector<engine::BreuschGodfrey> lags = {};
};

struct ArchTests {
  LaggedChiSquared joint;
  std::vector<LaggedChiSquared> equations;
};

struct EquationShape {
  engine::Shape shape;
  std::optional<engine::ChiSquaredTest> jarqueBera;
  LaggedChiSquared ljungBox;
};

struct NormalityTests {
  std::optional<engine::ChiSquaredTest> doornikHansen;
  std::optional<engine::MultivariateNormality> cholesky;
  std::vector<EquationShape> equations;
};

// Of one series of the sample.
struct UnitRootTests {
  engine::UnitRootTerms terms = engine::UnitRootTerms::constant;
  std::optional<engine::AugmentedDickeyFuller> dickeyFuller = {};
  std::optional<engine::Kpss> kpss = {};
};

// Those that were asked for.
struct ResidualTests {
  std::optional<LaggedChiSquared> portmanteau = {};
  std::optional<SerialCorrelation> lagrange = {};
  std::optional<ArchTests> arch = {};
  std::optional<NormalityTests> normality = {};
  std::vector<std::vector<UnitRootTests>> unitRoots = {};  // [series]: with a constant, with constant and trend
};

ResidualTests testResiduals(const Model& model, const ModelData& data, const TestSettings& settings);

}  // namespace vardynamics
