// The procedure's chart class: what a chart looks like, told to the host in its chart language.

#pragma once

#include <cstdint>
#include <string>

#include "host/vizl_graph.h"
#include "procedures/common/chart_specification.h"

namespace varmodel {

class VARChart : public StatVizlGraph {
 public:
  // The name is also the chart's title.
  VARChart(StatJSONGenerator& generator, const std::string& name);

  void setChartType(std::int32_t kind);
  void setLineColor(std::int32_t color);
  void setAxisLabel(bool isXAxis, const std::string& label);
  void setSeriesColor(const std::string& series, const std::string& color);

  // Adds the chart specification to the chart's object as an array of lines under the key "vizl".
  void writeSpecification(rapidjson::Value& chart, rapidjson::Document::AllocatorType& allocator) override;

 private:
  procedures::ChartDescription description_;
};

}  // namespace varmodel
