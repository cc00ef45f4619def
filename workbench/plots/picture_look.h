// How the marks of a chart look in a picture: as the report's page draws them on white paper.

#pragma once

#include <string>
#include <string_view>

#include "workbench/charts/chart.h"
#include "workbench/charts/chart_layout.h"

namespace workbench {

// "#2468b4" for a colour of a layout: "blue", or a number in the palette.
std::string_view pictureColor(std::string_view name);

// What gnuplot's plot command says behind `with` for a series, and for its sample in the legend.
std::string pictureStyle(const Chart& chart, const ChartLayout& layout, std::size_t series);
std::string legendStyle(const Chart& chart, const ChartLayout& layout, std::size_t series);

}  // namespace workbench
