// The one model of a run: its lag order, its least-squares fit, and what is inferred from it.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/equation_fit.h"
#include "engine/regression/var_estimation.h"
#include "procedures/common/original_scale.h"
#include "procedures/vardynamics/data/sample.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// What the model is fitted to.
struct ModelData {
  const ModelSettings& settings;
  const Sample& sample;
  SeriesList known;       // the known columns, T values each
  std::size_t cycle = 0;  // of the seasonal dummies; 0: none
  // What the endogenous series were made from, or nothing for those that hold what the data held; none: no series does.
  std::span<const std::optional<procedures::OriginalScale>> originals = {};
};

// The lag orders 0..P, all fitted on the rows from max(P, q) on; lag 0 is never chosen.
struct LagSelection {
  engine::VarEstimation candidates = {};
  std::int32_t minLag = 1;
  std::int32_t maxLag = 1;  // P

  std::int32_t chosenBy(Criterion criterion) const;
};

struct Model {
  std::optional<LagSelection> selection;                // nothing when the lag was given
  engine::FittedVar fit;                                // on the rows from max(p, q) on
  std::vector<engine::CoefficientInference> inference;  // of each equation, limits from Student's t
  std::vector<engine::EquationFit> equations;
  engine::Matrix covariance;    // S, divisor n - m
  engine::Matrix correlations;  // of S
  double logLikelihood = 0.0;
  double logDeterminant = 0.0;  // of V, divisor n

  std::size_t lag() const { return fit.lag; }
};

// Chooses the lag where it is not given, and fits it. `level` in percent. Throws UserError when the sample allows no
// such lag or the model cannot be estimated.
Model estimateModel(const ModelData& data, double level);

// The fit of one lag order, on the rows that it allows. Throws UserError as above; `setting` is the parameter that
// asked for the lag.
engine::FittedVar fitLag(const ModelData& data, std::int32_t lag, const char* setting);

}  // namespace vardynamics
