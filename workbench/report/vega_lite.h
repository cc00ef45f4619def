// A chart as a Vega-Lite specification.

#pragma once

#include <cstddef>
#include <string>

#include "host/json_document.h"
#include "workbench/report/chart_data.h"
#include "workbench/report/vizl.h"

namespace workbench {

// Expects data that has no problem. The specification reads its points from the data set "points", rows of
//   x (place of the category on the axis, from 0), y, series (its name), dot (whether the point is marked by itself),
// and calls functions of the page: categoryTicks(chart, from, to, width), the places that get a tick,
// categoryLabel(chart, place), and chartText(chart, which) for "title", "xLabel", "yLabel", "legendTitle": as a literal
// a text like "constructor" would be taken for a signal of that name. Its parameters `from` and `to` bound the part of
// the axis that is shown. Colours are the page's custom properties.
rapidjson::Value vegaLite(const ChartSpec& spec, const ChartData& data, std::size_t chart,
                          const std::string& description, rapidjson::Document::AllocatorType& pool);

// The custom property for a series: var(--chart-red), or of the palette when the chart gives no colour.
std::string seriesColor(const ChartData& data, std::size_t series);

// How many earlier series have the colour of this one; tells lines of one colour apart by their dashes.
std::size_t earlierOfColor(const ChartData& data, std::size_t series);

}  // namespace workbench
