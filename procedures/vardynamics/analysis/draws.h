// The bootstrap draws of a run: one set, from which all its bands are read.

#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "engine/dynamics/bootstrap_bands.h"
#include "procedures/vardynamics/analysis/model.h"
#include "procedures/vardynamics/analysis/work.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// What is said of draws that were made.
struct DrawCount {
  std::size_t replications = 0;
  std::size_t uncorrected = 0;  // kept as they were: not stable
  bool corrected = false;       // the others; false when the model itself has a root on or outside the unit circle
};

// Whether anything that the settings ask for is read from draws.
bool needsDraws(const Settings& settings);

// Throws UserError when so many replications do not suffice for limits at the largest level.
void requireReplications(const Settings& settings);

// Throws UserError when the draws of this model and the bands read from them need more than 4 GB.
void requireMemory(const Settings& settings, const engine::FittedVar& fit, std::size_t forecastPeriods);

class Draws {
 public:
  // Refers to all its arguments.
  Draws(const Settings& settings, const Model& model, const ModelData& data, const Work& work)
      : settings_(settings), model_(model), data_(data), work_(work) {}

  // Made at the first call. Throws UserError when the model allows none, Stopped when the work was stopped.
  const engine::BootstrapDraws& get();

  // For bands at the levels of the settings; refers to this.
  engine::BandOptions bandOptions(bool simultaneous);

  // The bands that a function of engine/dynamics found. Throws UserError when the draws do not suffice for paths of so
  // many points, Stopped when the work was stopped.
  std::vector<engine::Band> required(std::optional<std::vector<engine::Band>> bands, std::size_t points) const;

  // Nothing before the first get().
  std::optional<DrawCount> count() const;

 private:
  const Settings& settings_;
  const Model& model_;
  const ModelData& data_;
  const Work& work_;
  std::optional<engine::BootstrapDraws> draws_ = {};
  bool stopped_ = false;
};

}  // namespace vardynamics
