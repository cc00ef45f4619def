#include "workbench/report/vizl.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "procedures/common/chart_specification.h"

namespace workbench {
namespace {

using Element = ChartSpec::Element;
using Colors = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

Lines linesOfKind(std::int32_t kind, std::int32_t lineColor = 0) {
  procedures::ChartDescription chart;
  chart.xAxisLabel = "Date";
  chart.yAxisLabel = "Values";
  chart.kind = kind;
  chart.lineColor = lineColor;
  return procedures::chartSpecification(chart, "Vector Autoregressive Models", "T");
}

TEST(Vizl, UnderstandsEveryKind) {
  struct Case {
    std::int32_t kind;
    std::int32_t lineColor;
    Element element;
    std::string rest;  // colour, outline, columns, legend, size, and the scale where it is fixed
  };
  const Case cases[] = {
      {procedures::kLineChart, 0, Element::line, "red  xdata ydata  Observed 1"},
      {procedures::kLineChart, 1, Element::line, "green  xdata ydata  Observed 1"},
      {procedures::kLineChart, 2, Element::line, "blue  xdata ydata  Observed 1"},
      {procedures::kCorrelationBars, 0, Element::interval, "blue  xdata ydata  ACF 20 -1 to 1"},
      {procedures::kAreaChart, 0, Element::area, "red red xdata ydata  Observed 0"},
      {procedures::kSeriesLines, 0, Element::line, "  xdata ydata seriesname Variable 1"},
      {9, 0, Element::none, "      0"},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.kind);
    const ChartSpec spec = parseVizl(linesOfKind(expected.kind, expected.lineColor), {});
    EXPECT_EQ(spec.notUnderstood, Lines{});
    EXPECT_EQ(spec.title + spec.xLabel + spec.yLabel, "TDateValues");
    EXPECT_EQ(spec.element, expected.element);
    EXPECT_TRUE(spec.dataOrder);
    std::string rest = fmt::format("{} {} {} {} {} {} {}", spec.color, spec.outline, spec.xColumn, spec.yColumn,
                                   spec.seriesColumn, spec.legendTitle, spec.size);
    if (spec.yRange) rest += fmt::format(" {} to {}", spec.yRange->min, spec.yRange->max);
    EXPECT_EQ(rest, expected.rest);
  }
}

TEST(Vizl, FindsTheEndOfNamesInAColorMap) {
  const std::string tricky = "A\", color.red), (\"B";
  const std::string text = "(\"A\", color.red), (\"B\", color.red)";
  EXPECT_EQ(parseColorMap(text, {"A", "B"}), (Colors{{"A", "red"}, {"B", "red"}}));
  EXPECT_EQ(parseColorMap(text, {tricky}), (Colors{{tricky, "red"}}));
  EXPECT_EQ(parseColorMap(text, {}), (Colors{{"A", "red"}, {"B", "red"}}));  // names without data: the shortest
  for (const char* bad :
       {"(\"A\", color.puce)", "(\"A\", color.red), ", "(\"A\")", "A, color.red", "(\"A\", color.red)x"}) {
    EXPECT_EQ(parseColorMap(bad, {"A"}), std::nullopt) << bad;
  }
}

TEST(Vizl, NamesWhatItDoesNotUnderstandAndKeepsTheRest) {
  for (const std::string line : {"", "SCALE: log(dim(2), base(10))", "SCALE: linear(dim(2), min(1), max(-1))",
                                 "SCALE: linear(dim(2), min(low), max(high))",
                                 "SCALE: cat(aesthetic(aesthetic.color), map((\"A\", color.puce)))",
                                 "GUIDE: axis(dim(3),label(\"z\"))", "ELEMENT: point(position(xdata*ydata))",
                                 "ELEMENT: area(position(xdata*ydata))", "GRAPH: begin", "DATA: z = iter(1, 10)"}) {
    Lines lines = linesOfKind(procedures::kLineChart);
    lines.insert(lines.end() - 1, line);
    const ChartSpec spec = parseVizl(lines, {});
    EXPECT_EQ(spec.notUnderstood, Lines{line});
    EXPECT_EQ(spec.element, Element::line);
  }
  const Lines part{"DATA: a = col(source(s), name(\"xdata\"))", "DATA: b = col(source(s), name(\"ydata\"))",
                   "ELEMENT: line(position(a*b), color(color.puce), transparency(0.5))"};
  const ChartSpec spec = parseVizl(part, {});
  EXPECT_EQ(spec.element, Element::line) << "of an element that is understood in part";
  EXPECT_EQ(spec.xColumn, "xdata");
  EXPECT_EQ(spec.notUnderstood, Lines{part[2]});
  EXPECT_EQ(parseVizl({"ELEMENT: line(position(a*b))"}, {}).notUnderstood.size(), 1U) << "columns never declared";
}

}  // namespace
}  // namespace workbench
