// Charts in gnuplot's command language.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/charts/chart.h"
#include "workbench/charts/chart_layout.h"
#include "workbench/render/number_format.h"

namespace workbench {

// A text as a literal that ends where it is meant to and in which nothing is replaced: single quotes, those of the
// text doubled, control characters made visible.
std::string gnuplotText(std::string_view text);

// Whether a series that is drawn has a value.
bool hasValues(const Chart& chart);

// The glyph that draws each series of a chart, with the series' index; the terminal has only so many, the rest is not
// drawn. Bands have lighter ones of their own.
std::vector<std::pair<std::size_t, char>> seriesGlyphs(const Chart& chart, const ChartLayout& layout);

struct PlotSize {
  int width = 80;
  int height = 15;  // with the labels of the axis
};

// Commands that draw the chart as text, without title and legend, and print kPlotEnd after it. They depend on nothing
// that was set before. Of a long history the last part is drawn; where series meet, the earlier one shows, except that
// one drawn below others leaves them every third place. Axes of equal units take the width that fits their height.
// Expects data that has values.
std::string gnuplotScript(const Chart& chart, const PlotSize& size, const Language& language = {});

inline constexpr char kPlotEnd = '\x1e';

}  // namespace workbench
