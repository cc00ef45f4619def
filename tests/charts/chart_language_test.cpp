#include "workbench/charts/chart_language.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>

#include "procedures/common/chart_specification.h"
#include "workbench/charts/color_map.h"

namespace workbench {
namespace {

using Kind = ChartElement::Kind;
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

TEST(ChartLanguage, UnderstandsEveryKind) {
  struct Case {
    std::int32_t kind;
    std::int32_t lineColor;
    Kind element;
    std::string rest;  // colour, outline, columns, legend, size, and the scale where it is fixed
  };
  const Case cases[] = {
      {procedures::kLineChart, 0, Kind::line, "red  xdata ydata  Observed 1"},
      {procedures::kLineChart, 1, Kind::line, "green  xdata ydata  Observed 1"},
      {procedures::kLineChart, 2, Kind::line, "blue  xdata ydata  Observed 1"},
      {procedures::kCorrelationBars, 0, Kind::interval, "blue  xdata ydata  ACF 20 -1 to 1"},
      {procedures::kAreaChart, 0, Kind::area, "red red xdata ydata  Observed 0"},
      {procedures::kSeriesLines, 0, Kind::line, "  xdata ydata seriesname Variable 1"},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.kind);
    const ChartSpec spec = parseChartLanguage(linesOfKind(expected.kind, expected.lineColor), {});
    EXPECT_EQ(spec.notUnderstood, Lines{});
    EXPECT_EQ(spec.title + spec.xLabel + spec.yLabel, "TDateValues");
    EXPECT_TRUE(spec.dataOrder);
    ASSERT_EQ(spec.elements.size(), 1U);
    const ChartElement& element = spec.elements[0];
    EXPECT_EQ(element.kind, expected.element);
    std::string rest = fmt::format("{} {} {} {} {} {} {}", element.color, element.outline, element.xColumn,
                                   element.yColumn, element.seriesColumn, spec.legendTitle, element.size);
    if (spec.yRange) rest += fmt::format(" {} to {}", spec.yRange->min, spec.yRange->max);
    EXPECT_EQ(rest, expected.rest);
  }
  EXPECT_TRUE(parseChartLanguage(linesOfKind(9), {}).elements.empty());
}

TEST(ChartLanguage, FindsTheEndOfNamesInAColorMap) {
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

TEST(ChartLanguage, NamesWhatItDoesNotUnderstandAndKeepsTheRest) {
  for (const std::string line :
       {"", "SCALE: log(dim(2), base(10))", "SCALE: linear(dim(2), min(1), max(-1))",
        "SCALE: linear(dim(2), min(low), max(1))", "SCALE: linear(dim(2), min(0), max(inf))",
        "SCALE: cat(aesthetic(aesthetic.color), map((\"A\", color.puce)))", "GUIDE: axis(dim(3),label(\"z\"))",
        "GUIDE: line(dim(3), at(0))", "GUIDE: circle(at(0, 0), radius(0))", "ELEMENT: song(position(xdata*ydata))",
        "ELEMENT: area(position(ydata*ydata))", "PANEL: rows(nowhere), columns(xdata)", "GRAPH: begin",
        "DATA: z = iter(1, 10)"}) {
    Lines lines = linesOfKind(procedures::kLineChart);
    lines.insert(lines.end() - 1, line);
    const ChartSpec spec = parseChartLanguage(lines, {});
    EXPECT_EQ(spec.notUnderstood, Lines{line});
    EXPECT_EQ(spec.elements.size(), 1U);
  }
  const Lines part{"DATA: a = col(source(s), name(\"xdata\"))", "DATA: b = col(source(s), name(\"ydata\"))",
                   "ELEMENT: line(position(a*b), color(color.puce), transparency(0.5), stack())"};
  const ChartSpec spec = parseChartLanguage(part, {});
  ASSERT_EQ(spec.elements.size(), 1U) << "of an element that is understood in part";
  EXPECT_EQ(spec.elements[0].xColumn, "xdata");
  EXPECT_EQ(spec.notUnderstood, Lines{part[2]});
  EXPECT_EQ(parseChartLanguage({"ELEMENT: line(position(a*b))"}, {}).notUnderstood.size(), 1U)
      << "columns never declared";
}

// The statements that the first kinds do without.
TEST(ChartLanguage, UnderstandsBandsStacksPointsGuidesAndPanels) {
  Lines lines;
  for (const char* name : {"when", "group"})
    lines.push_back(fmt::format("DATA: {0} = col(source(s), name(\"{0}\"), unit.category())", name));
  for (const char* name : {"value", "low", "high", "said"})
    lines.push_back(fmt::format("DATA: {0} = col(source(s), name(\"{0}\"))", name));
  const auto specOf = [&](const Lines& more) {
    Lines all = lines;
    all.insert(all.end(), more.begin(), more.end());
    return parseChartLanguage(all, {});
  };
  const ChartSpec fan =
      specOf({"ELEMENT: band(position(when*low*high), color.interior(color.blue), label(\"80%, (a)\"))",
              "ELEMENT: area(position(when*value), color(group), stack())",
              "ELEMENT: line(position(when*value), color(color.black), label(\"Sum\"))",
              "PANEL: rows(group), columns(group)"});
  EXPECT_EQ(fan.notUnderstood, Lines{});
  ASSERT_EQ(fan.elements.size(), 3U);
  EXPECT_EQ(fan.elements[0].yColumn + fan.elements[0].upperColumn + fan.elements[0].label, "lowhigh80%, (a)");
  EXPECT_EQ(fan.elements[0].color + fan.elements[2].color + fan.elements[2].label, "blueblackSum");
  EXPECT_TRUE(fan.elements[1].stacked && !fan.elements[2].stacked);
  EXPECT_EQ(fan.panel->rowColumn, "group");

  const ChartSpec odd = specOf({"ELEMENT: line(position(when*value), stack())"});
  EXPECT_EQ(odd.notUnderstood.size(), 1U) << "lines do not stand on each other";
  EXPECT_FALSE(odd.elements.at(0).stacked);
  EXPECT_FALSE(specOf({"ELEMENT: point(position(when*value))"}).numericX) << "points over categories";

  const ChartSpec roots = specOf({"SCALE: linear(dim(1), min(-1), max(1.5))", "SCALE: equal(dim(1), dim(2))",
                                  "GUIDE: line(dim(2), at(-0.5))", "GUIDE: circle(at(0, 1), radius(2))",
                                  "ELEMENT: point(position(value*low), color(color.red), text(said))"});
  EXPECT_EQ(roots.notUnderstood, Lines{});
  EXPECT_TRUE(roots.numericX && roots.equalAxes);
  EXPECT_EQ(roots.xRange->max, 1.5);
  EXPECT_EQ(roots.elements.at(0).textColumn, "said");
  EXPECT_EQ(std::pair(roots.lines.at(0).dimension, roots.lines.at(0).at), std::pair(2, -0.5));
  EXPECT_EQ(std::pair(roots.circles.at(0).y, roots.circles.at(0).radius), std::pair(1.0, 2.0));
}

// What the documentation shows is understood, each statement after the columns that it names.
TEST(ChartLanguage, UnderstandsEveryStatementOfItsDocumentation) {
  std::ifstream stream(VARMODEL_SOURCE_DIR "/docs/charts.md");
  const std::string page(std::istreambuf_iterator<char>(stream), {});
  Lines columns;
  for (const char* name : {"x", "a", "b", "date", "name", "horizon", "shock", "response", "said"})
    columns.push_back(fmt::format("DATA: {0} = col(source(s), name(\"{0}\"), unit.category())", name));
  for (const char* name :
       {"y", "low", "high", "low95", "high95", "low50", "high50", "value", "re", "im", "percent", "part", "sum"})
    columns.push_back(fmt::format("DATA: {0} = col(source(s), name(\"{0}\"))", name));
  const std::regex statement("(?:^|\n|`)((?:SOURCE|DATA|GRAPH|PANEL|SCALE|GUIDE|ELEMENT): [^`\n]+)");
  std::size_t count = 0;
  for (std::sregex_iterator it(page.begin(), page.end(), statement), end; it != end; ++it) {
    if ((*it)[1].str().find("KIND") != std::string::npos) continue;
    Lines lines = columns;
    lines.push_back((*it)[1]);
    EXPECT_EQ(parseChartLanguage(lines, {}).notUnderstood, Lines{});
    ++count;
  }
  EXPECT_GT(count, 35U);
}

}  // namespace
}  // namespace workbench
