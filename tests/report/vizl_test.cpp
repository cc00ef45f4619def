#include "workbench/report/vizl.h"

#include <gtest/gtest.h>

#include "output/chart_specification.h"
#include "tests/report/hostile_names.h"

namespace workbench {
namespace {

using varmodel::ChartDescription;
using Element = ChartSpec::Element;
using Colors = std::map<std::string, std::string>;

ChartSpec parse(const ChartDescription& chart, const std::string& title = "T",
                const std::set<std::string>& names = {}) {
  return parseVizl(varmodel::chartSpecification(chart, "Vector Autoregressive Models", title), names);
}

ChartDescription describe(std::int32_t kind) {
  ChartDescription chart;
  chart.xAxisLabel = "Date";
  chart.yAxisLabel = "Values";
  chart.kind = kind;
  return chart;
}

TEST(Vizl, UnderstandsEveryKind) {
  struct Case {
    std::int32_t kind;
    Element element;
    const char* color;
    const char* legend;
    double size;
    bool bySeries;
    bool fixedScale;
  };
  const Case cases[] = {
      {varmodel::kLineChart, Element::line, "red", "Observed", 1, false, false},
      {varmodel::kCorrelationBars, Element::interval, "blue", "ACF", 20, false, true},
      {varmodel::kAreaChart, Element::area, "red", "Observed", 0, false, false},
      {varmodel::kSeriesLines, Element::line, "", "Variable", 1, true, false},
      {varmodel::kSeriesLinesToo, Element::line, "", "Variable", 1, true, false},
      {9, Element::none, "", "", 0, false, false},
  };
  for (const Case& expected : cases) {
    SCOPED_TRACE(expected.kind);
    const ChartSpec spec = parse(describe(expected.kind));
    EXPECT_TRUE(spec.notUnderstood.empty());
    EXPECT_EQ(spec.title, "T");
    EXPECT_EQ(spec.xLabel, "Date");
    EXPECT_EQ(spec.yLabel, "Values");
    EXPECT_EQ(spec.element, expected.element);
    EXPECT_EQ(spec.color, expected.color);
    EXPECT_EQ(spec.legendTitle, expected.legend);
    EXPECT_EQ(spec.size, expected.size);
    EXPECT_EQ(spec.seriesColumn, expected.bySeries ? "seriesname" : "");
    EXPECT_TRUE(spec.dataOrder);
    ASSERT_EQ(spec.yRange.has_value(), expected.fixedScale);
    EXPECT_EQ(spec.yRange.value_or(ChartSpec::Range{-1, 1}).min, -1);
    EXPECT_EQ(spec.yRange.value_or(ChartSpec::Range{-1, 1}).max, 1);
    EXPECT_EQ(spec.xColumn + spec.yColumn, expected.element != Element::none ? "xdataydata" : "");
  }
  EXPECT_EQ(parse(describe(varmodel::kAreaChart)).outline, "red");
}

TEST(Vizl, ReadsLineColors) {
  ChartDescription chart = describe(varmodel::kLineChart);
  for (const auto& [number, color] : {std::pair{1, "green"}, {2, "blue"}, {3, "red"}}) {
    chart.lineColor = number;
    EXPECT_EQ(parse(chart).color, color);
  }
}

TEST(Vizl, KeepsHostileTextsInEveryLabel) {
  for (const std::string& name : hostileNames()) {
    SCOPED_TRACE(name);
    for (const std::int32_t kind : {varmodel::kLineChart, varmodel::kCorrelationBars, varmodel::kSeriesLines}) {
      ChartDescription chart = describe(kind);
      chart.xAxisLabel = name + "x";
      chart.yAxisLabel = name + "y";
      chart.seriesColors = {{name, "color.green"}, {"Zulu", "color.blue"}};
      const ChartSpec spec =
          parseVizl(varmodel::chartSpecification(chart, name, name), std::set<std::string>{name, "Zulu"});
      EXPECT_TRUE(spec.notUnderstood.empty());
      EXPECT_EQ(spec.xLabel, name + "x");
      EXPECT_EQ(spec.yLabel, name + "y");
      EXPECT_EQ(spec.title, name);
      if (kind == varmodel::kSeriesLines) {
        EXPECT_EQ(spec.seriesColors, (Colors{{name, "green"}, {"Zulu", "blue"}}));
      }
    }
  }
}

TEST(Vizl, FindsTheEndOfNamesInAColorMap) {
  const std::string tricky = "A\", color.red), (\"B";
  const std::string text = "(\"A\", color.red), (\"B\", color.red)";
  EXPECT_EQ(parseColorMap(text, {"A", "B"}), (Colors{{"A", "red"}, {"B", "red"}}));
  EXPECT_EQ(parseColorMap(text, {tricky}), (Colors{{tricky, "red"}}));
  EXPECT_EQ(parseColorMap(text, {}), (Colors{{"A", "red"}, {"B", "red"}}));  // names without data: the shortest
  EXPECT_EQ(parseColorMap("", {}), Colors{});
  for (const char* bad :
       {"(\"A\", color.puce)", "(\"A\", color.red), ", "(\"A\")", "A, color.red", "(\"A\", color.red)x"}) {
    EXPECT_EQ(parseColorMap(bad, {"A"}), std::nullopt) << bad;
  }
}

TEST(Vizl, NamesWhatItDoesNotUnderstand) {
  const std::string cases[] = {
      "",
      "SCALE: log(dim(2), base(10))",
      "SCALE: linear(dim(2), min(1), max(-1))",
      "SCALE: linear(dim(2), min(low), max(high))",
      "SCALE: cat(aesthetic(aesthetic.color), map((\"A\", color.puce)))",
      "GUIDE: axis(dim(3),label(\"z\"))",
      "ELEMENT: point(position(xdata*ydata))",
      "GRAPH: begin",
      "DATA: z = iter(1, 10)",
  };
  for (const std::string& line : cases) {
    auto lines = varmodel::chartSpecification(describe(varmodel::kLineChart), "s", "T");
    lines.insert(lines.end() - 1, line);
    const ChartSpec spec = parseVizl(lines, {});
    EXPECT_EQ(spec.notUnderstood, std::vector<std::string>{line});
    EXPECT_EQ(spec.element, Element::line);  // the rest stands
  }
}

TEST(Vizl, DrawsWhatItUnderstandsOfAnElement) {
  const std::vector<std::string> lines{"DATA: a = col(source(s), name(\"xdata\"))",
                                       "DATA: b = col(source(s), name(\"ydata\"))",
                                       "ELEMENT: line(position(a*b), color(color.puce), transparency(0.5))"};
  const ChartSpec spec = parseVizl(lines, {});
  EXPECT_EQ(spec.element, Element::line);
  EXPECT_EQ(spec.xColumn, "xdata");
  EXPECT_EQ(spec.notUnderstood, std::vector<std::string>{lines[2]});

  const std::string second = "ELEMENT: area(position(a*b))";
  EXPECT_EQ(parseVizl({lines[0], lines[1], "ELEMENT: line(position(a*b))", second}, {}).notUnderstood,
            std::vector<std::string>{second});
  EXPECT_EQ(parseVizl({"ELEMENT: line(position(a*b))"}, {}).notUnderstood.size(), 1U);  // columns never declared
}

}  // namespace
}  // namespace workbench
