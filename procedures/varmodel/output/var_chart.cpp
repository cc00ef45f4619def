#include "procedures/varmodel/output/var_chart.h"

namespace varmodel {

VARChart::VARChart(StatJSONGenerator& generator, const std::string& name) : StatVizlGraph(generator, name) {}

void VARChart::setChartType(std::int32_t kind) {
  description_.kind = kind;
}

void VARChart::setLineColor(std::int32_t color) {
  description_.lineColor = color;
}

void VARChart::setAxisLabel(bool isXAxis, const std::string& label) {
  (isXAxis ? description_.xAxisLabel : description_.yAxisLabel) = label;
}

void VARChart::setSeriesColor(const std::string& series, const std::string& color) {
  description_.seriesColors[series] = color;
}

void VARChart::writeSpecification(rapidjson::Value& chart, rapidjson::Document::AllocatorType& allocator) {
  procedures::addSpecification(chart, allocator, chartSpecification(description_, getProcedureName(), getName()));
}

}  // namespace varmodel
