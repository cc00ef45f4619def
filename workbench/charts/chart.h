// One chart item of an output document, read.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/base/json.h"
#include "workbench/charts/chart_data.h"
#include "workbench/charts/chart_spec.h"

namespace workbench {

struct Chart {
  ChartSpec spec;  // titled by the item's name when its lines give no title
  ChartData data;
  std::optional<ChartSpec::Range> besides;  // of the values in charts whose value axis this one shares

  // Of a panel: its headings, visible text, and a chart for each pair of them, row by row. `data` then has the
  // categories and no series.
  std::vector<std::string> panelRows;
  std::vector<std::string> panelColumns;
  std::vector<Chart> cells;
};

// A line that is no text reads as `notAText`. Throws std::runtime_error where the item's name is no text.
Chart readChart(const rapidjson::Value& item, const std::string& notAText);

// What the item's statements call the chart; its name when they do not say.
std::string chartTitle(const rapidjson::Value& item);

}  // namespace workbench
