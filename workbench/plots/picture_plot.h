// One set of axes of a picture, in gnuplot's command language.

#pragma once

#include <string>

#include "workbench/charts/chart.h"

namespace workbench {

// What a small chart of a panel leaves to its neighbours.
struct PlotAxes {
  double width = 640;  // of the axes, in pixels
  bool small = false;  // no titles of axes, few ticks
  bool xLabels = true;
  bool yLabels = true;
  bool legend = false;
};

// The commands that draw the chart into the place that was set before, the plot command last. Expects data that has
// values.
std::string picturePlot(const Chart& chart, const PlotAxes& axes);

// Entries of the legend, to be appended to a plot command; "" for a single series.
std::string legendEntries(const Chart& chart);

}  // namespace workbench
