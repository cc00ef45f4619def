// What part of a chart's axes a plot shows.

#pragma once

#include "workbench/charts/chart.h"
#include "workbench/charts/chart_layout.h"
#include "workbench/plots/character_fill.h"

namespace workbench {

// For a plot of so many characters. Of categories the part that is shown first; the value axis reaches over what is
// drawn there, over guides, over charts that share it, and to zero for bars and areas.
GridFrame plotFrame(const Chart& chart, const ChartLayout& layout, int columns, int rows);

}  // namespace workbench
