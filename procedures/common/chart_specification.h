// The text of a chart in the host's chart language.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "host/json_document.h"

namespace procedures {

// Values of ChartDescription::kind; a kind that is not listed draws no element.
enum ChartKind : std::int32_t {
  kLineChart = 0,
  kCorrelationBars = 1,  // on a fixed value scale from -1 to 1
  kAreaChart = 2,
  kSeriesLines = 3,     // one line a series, coloured by series
  kSeriesLinesToo = 4,  // the same template
};

// Values of ChartDescription::lineColor; anything else is red.
enum LineColor : std::int32_t { kRedLine = 0, kGreenLine = 1, kBlueLine = 2 };

struct ChartDescription {
  std::string xAxisLabel;
  std::string yAxisLabel;
  std::int32_t kind = kLineChart;
  std::int32_t lineColor = kRedLine;
  std::map<std::string, std::string> seriesColors;  // series name -> colour name, such as color.red
};

// The specification's lines, in the order in which the language wants them. Labels and names are inserted as they are,
// without escaping. `source` identifies the chart's data source.
std::vector<std::string> chartSpecification(const ChartDescription& chart, const std::string& source,
                                            const std::string& title);

// Adds the lines to a chart's object of the output document, as an array under the key "vizl".
void addSpecification(rapidjson::Value& chart, rapidjson::Document::AllocatorType& allocator,
                      const std::vector<std::string>& lines);

}  // namespace procedures
