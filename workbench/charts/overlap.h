// Lines that lie on each other.

#pragma once

#include "workbench/charts/chart_data.h"

namespace workbench {

// Whether two lines would hide each other: they share most of their places, and their mean distance there is below a
// twentieth of what they span together.
bool nearlyCoincide(const ChartSeries& a, const ChartSeries& b);

}  // namespace workbench
