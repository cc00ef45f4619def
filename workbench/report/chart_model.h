// A chart as plain data for the page's script.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/charts/chart.h"
#include "workbench/report/column_store.h"

namespace workbench {

// Points that a series is drawn with at most; more do not show on a screen.
inline constexpr std::size_t kMostDrawn = 3000;

// A JSON object, safe inside a <script> element, its data in numbered columns of the store. Expects data that has no
// problem. Members (columns by their number; those that do not apply are absent):
//   title xLabel yLabel legendTitle description   texts; single: true for one series that is called by the legend's
//   title categories     column of the axis' labels ticks          [[step, first place] or [step, [places]], ...], from
//   narrow to wide from           place at which the part begins that is shown first numeric, equal true for an axis of
//   numbers, for units of one length zero           whether the value axis has to reach zero xRange, yRange [min, max],
//   as the statements fix them; besides: values that the value axis reaches over too lines          [[dimension, at],
//   ...]; circles: [[x, y, radius], ...] series         [{name, kind, color, size, dash, depth, under, continues,
//                    start: first place of neighbours, or x: column of places or numbers,
//                    y, low, high: columns; texts: column; levels: columns of indexes, from many to few}, ...]
// `low` and `high` are the edges of what is drawn around nothing or from a base: of a band, of stacked series.
std::string chartModel(const Chart& chart, const std::string& description, ColumnStore& columns);

// The same for a panel: title, xLabel, yLabel, legendTitle, description, `axes` in words, rows and columns (headings),
// and `cells`, the numbers of its charts, row by row, null for one that has nothing to draw.
std::string panelModel(const Chart& panel, const std::string& axes, const std::string& description,
                       const std::vector<std::optional<std::size_t>>& cells);

}  // namespace workbench
