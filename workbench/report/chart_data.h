// The points of a chart, as its specification lines arrange its data columns.

#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "host/json_document.h"
#include "workbench/report/vizl.h"

namespace workbench {

struct ChartSeries {
  std::string name;            // as shown: visible text, no two series of a chart alike
  std::string key;             // as the data has it
  std::vector<std::size_t> x;  // indexes into the categories, one a point
  std::vector<double> y;       // one a point; NaN for a missing value
  std::string color;           // "red" as the chart language says; empty when it says nothing

  // Whether the points stand on neighbouring categories from the first one on.
  bool contiguous() const;
};

struct ChartData {
  std::vector<std::string> categories;  // visible text, in axis order
  std::vector<ChartSeries> series;      // in order of first appearance
  std::string problem;                  // why there is nothing to draw, or empty

  std::size_t longestSeries() const;
};

// The names in a data column of texts; none when there is no such column.
std::set<std::string> columnNames(const rapidjson::Value& columns, const char* column);

// Where columns differ in length, the shortest counts. A chart of one series calls it by its legend's title.
ChartData readChartData(const rapidjson::Value& columns, const ChartSpec& spec);

}  // namespace workbench
