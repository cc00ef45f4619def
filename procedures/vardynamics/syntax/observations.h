// What a run analyses: the sample, the periods to be forecast, and what both are called.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/data_source.h"
#include "procedures/common/original_scale.h"
#include "procedures/vardynamics/data/sample.h"
#include "procedures/vardynamics/data/seasons.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

struct Observations {
  Sample sample = {};
  std::size_t horizon = 0;               // 0 without FORECAST
  std::size_t cycle = 0;                 // seasons in a cycle of the dates; 0: none
  Seasons seasons = {};                  // of the dummies; none unless asked for
  bool dated = false;                    // else the labels are case numbers
  std::vector<std::string> labels = {};  // of the T rows, then of the periods of the horizon
  // Parallel: the date variables and their components in these periods.
  std::vector<std::string> dateVariables = {};
  SeriesList dateComponents = {};
  std::vector<std::optional<procedures::OriginalScale>> originals = {};  // of the endogenous series

  const std::string& label(std::size_t period) const { return labels[period]; }
  const std::string& lastLabel() const { return labels[sample.rows() - 1]; }
};

// Reads the cases of both lists in one pass and cuts the sample from them. Throws UserError when they allow no analysis
// or not the forecast that is asked for.
Observations readObservations(const Settings& settings, ProcedureDataSource& dataSource);

}  // namespace vardynamics
