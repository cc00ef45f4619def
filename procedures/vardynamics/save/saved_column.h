// A column of the saved data file.

#pragma once

#include <string>
#include <vector>

#include "procedures/vardynamics/analysis/analysis.h"
#include "procedures/vardynamics/syntax/observations.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

struct SavedColumn {
  std::string name;
  std::string label;
  std::vector<double> values = {};
};

}  // namespace vardynamics
