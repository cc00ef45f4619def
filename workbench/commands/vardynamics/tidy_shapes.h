// How the tables of VARDYNAMICS read in long form.

#pragma once

#include <vector>

#include "workbench/render/tidy_table.h"

namespace workbench::vardynamics {

std::vector<TidyShape> tidyShapes();

}  // namespace workbench::vardynamics
