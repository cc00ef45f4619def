// A bias-corrected bootstrap of a vector autoregression: the estimates of many replications, from which the bands of
// responses, shares and forecasts are read.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "engine/arithmetic/parallel_blocks.h"
#include "engine/dynamics/resampling.h"
#include "engine/dynamics/responses.h"

namespace engine {

struct BootstrapOptions {
  std::size_t replications = 2000;
  std::uint64_t seed = 1;
  Resample resample = Resample::residual;
  std::size_t jobs = 1;
  Progress progress = {};
};

class BootstrapDraws {
 public:
  BootstrapDraws(ResamplingPlan plan, BootstrapOptions options);

  // Kilian (1998) with the bias of every replication taken from the sample's: replication r uses stream r of the seed,
  // so that the result depends neither on the number of threads nor on the order. False when `progress` stopped it; the
  // draws are then not to be used.
  bool run();

  const ResamplingPlan& plan() const { return plan_; }
  const BootstrapOptions& options() const { return options_; }
  std::size_t count() const { return options_.replications; }
  std::size_t uncorrected() const { return uncorrected_; }  // kept as they were: F* was not stable
  DrawnModel model(std::size_t replication) const;

  // A replication's [A_1 .. A_p], lag 1 first, and the d x K coefficients of the terms themselves.
  LagMatrices lagMatrices(std::size_t replication) const;
  Matrix termCoefficients(std::size_t replication) const;

 private:
  ResamplingPlan plan_;
  BootstrapOptions options_;
  std::size_t uncorrected_ = 0;
  mutable std::vector<double> values_;
};

}  // namespace engine
