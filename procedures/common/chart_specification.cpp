#include "procedures/common/chart_specification.h"

namespace procedures {

namespace {

using Lines = std::vector<std::string>;

std::string axisLine(int dimension, const std::string& label) {
  return "GUIDE: axis(dim(" + std::to_string(dimension) + "),label(\"" + label + "\"))";
}

void addDataLines(Lines& lines) {
  lines.push_back("DATA: xdata  = col(source(s), name(\"xdata\"), unit.category())");
  lines.push_back("DATA: ydata  = col(source(s), name(\"ydata\"))");
}

void addGuideLines(Lines& lines, const ChartDescription& chart, const std::string& title) {
  lines.push_back(axisLine(2, chart.yAxisLabel));
  lines.push_back(axisLine(1, chart.xAxisLabel));
  lines.push_back("GUIDE: text.title(label(\"" + title + "\"))");
}

std::string seriesColorLine(const std::map<std::string, std::string>& colors) {
  std::string entries;
  for (const auto& [series, color] : colors) {
    if (!entries.empty()) entries += ", ";
    entries += "(\"" + series + "\", " + color + ")";
  }
  return "SCALE: cat(aesthetic(aesthetic.color), map(" + entries + "))";
}

std::string lineColorName(std::int32_t color) {
  switch (color) {
    case kGreenLine:
      return "color.green";
    case kBlueLine:
      return "color.blue";
    default:
      return "color.red";
  }
}

void addSeriesLines(Lines& lines, const ChartDescription& chart, const std::string& title) {
  addDataLines(lines);
  lines.push_back("DATA: seriesname = col(source(s), name(\"seriesname\"), unit.category())");
  lines.push_back("GRAPH: begin()");
  lines.push_back("SCALE: cat(dim(1), sort.data())");
  if (!chart.seriesColors.empty()) lines.push_back(seriesColorLine(chart.seriesColors));
  addGuideLines(lines, chart, title);
  lines.push_back("GUIDE: legend(aesthetic(aesthetic.color), label(\"Variable\"))");
  lines.push_back("ELEMENT: line(position(xdata*ydata), color(seriesname), size(size.\"1\"))");
}

void addElementLines(Lines& lines, const ChartDescription& chart) {
  const std::string observedLegend = "GUIDE: legend(aesthetic(aesthetic.color), label(\"Observed\"))";
  if (chart.kind == kCorrelationBars) {
    lines.push_back("GUIDE: legend(aesthetic(aesthetic.color.interior), label(\"ACF\"))");
    lines.push_back(
        "ELEMENT: interval(position(xdata*ydata), color.interior(color.blue), shape.interior(shape.square), "
        "size(size.\"20\"))");
  } else if (chart.kind == kAreaChart) {
    lines.push_back(observedLegend);
    lines.push_back("ELEMENT: area(position(xdata*ydata), color.interior(color.red), color.exterior(color.red))");
  } else if (chart.kind == kLineChart) {
    lines.push_back(observedLegend);
    lines.push_back("ELEMENT: line(position(xdata*ydata), color(" + lineColorName(chart.lineColor) +
                    "), size(size.\"1\"))");
  }
}

void addOneSeriesLines(Lines& lines, const ChartDescription& chart, const std::string& title) {
  addDataLines(lines);
  lines.push_back("GRAPH: begin()");
  lines.push_back("SCALE: cat(dim(1), sort.data())");
  if (chart.kind == kCorrelationBars) lines.push_back("SCALE: linear(dim(2), min(-1), max(1))");
  addGuideLines(lines, chart, title);
  addElementLines(lines, chart);
}

}  // namespace

std::vector<std::string> chartSpecification(const ChartDescription& chart, const std::string& source,
                                            const std::string& title) {
  Lines lines{"SOURCE: s = userSource(id(\"" + source + "\"))"};
  const bool manySeries = chart.kind == kSeriesLines || chart.kind == kSeriesLinesToo;
  manySeries ? addSeriesLines(lines, chart, title) : addOneSeriesLines(lines, chart, title);
  lines.push_back("GRAPH: end()");
  return lines;
}

void addSpecification(rapidjson::Value& chart, rapidjson::Document::AllocatorType& allocator,
                      const std::vector<std::string>& lines) {
  rapidjson::Value texts(rapidjson::kArrayType);
  for (const std::string& line : lines) texts.PushBack(rapidjson::Value(line, allocator), allocator);
  // The key is copied too: the document outlives this library when the host unloads it.
  chart.AddMember(rapidjson::Value("vizl", allocator), texts, allocator);
}

}  // namespace procedures
