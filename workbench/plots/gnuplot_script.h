// Charts in gnuplot's command language.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "workbench/render/number_format.h"
#include "workbench/report/chart.h"

namespace workbench {

// Series of a chart that are told apart, and so are drawn: the terminal's lines have this many glyphs.
inline constexpr std::string_view kGlyphs = "*#$%@&=";

// A text as a literal that ends where it is meant to and in which nothing is replaced: single quotes, those of the
// text doubled, control characters made visible.
std::string gnuplotText(std::string_view text);

// Whether a series that is drawn has a value.
bool hasValues(const ChartData& data);

// Commands that draw the chart as text on `width` columns and kPlotHeight rows, without title and legend, and print
// kPlotEnd after it. They depend on nothing that was set before. Series i has glyph i; where series meet, the earlier
// one shows. Expects data that has values.
std::string gnuplotScript(const Chart& chart, int width, const Locale& locale = {});

inline constexpr int kPlotHeight = 15;
inline constexpr char kPlotEnd = '\x1e';

}  // namespace workbench
