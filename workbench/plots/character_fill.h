// Areas of a chart as points of a character grid.

#pragma once

#include <cstddef>
#include <vector>

namespace workbench {

struct GridPoint {
  double x = 0;
  double y = 0;
};

// The part of a plot that is drawn on a grid of characters.
struct GridFrame {
  double from = 0;  // values at the left and right end
  double to = 1;
  double low = 0;  // and at the lower and upper end
  double high = 1;
  std::size_t columns = 1;
  std::size_t rows = 1;
};

// What lies between two edges at ascending places, NaN where they have a gap.
struct EdgeLines {
  std::vector<double> x;
  std::vector<double> low;
  std::vector<double> high;
};

// Points for every character between the edges, which are straight from one place to the next.
std::vector<GridPoint> fillBetween(const EdgeLines& edges, const GridFrame& frame);

// The same for bars `width` wide (in x) around each place.
std::vector<GridPoint> fillBars(const EdgeLines& edges, double width, const GridFrame& frame);

std::vector<GridPoint> horizontalLine(double y, const GridFrame& frame);
std::vector<GridPoint> verticalLine(double x, const GridFrame& frame);
std::vector<GridPoint> circle(double x, double y, double radius, const GridFrame& frame);

}  // namespace workbench
