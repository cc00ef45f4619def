// The free functions: number texts and chart language.

#include <gtest/gtest.h>

#include <limits>

#include "procedures/common/chart_specification.h"
#include "procedures/common/number_text.h"

namespace procedures {
namespace {

TEST(NumberText, ConfidenceLevelIsTheShortestNumber) {
  EXPECT_EQ(confidenceLevelText(95.0), "95%");
  EXPECT_EQ(confidenceLevelText(97.5), "97.5%");
  EXPECT_EQ(confidenceLevelText(100.0), "100%");
}

TEST(NumberText, SixDecimalsFollowPrintf) {
  using Limits = std::numeric_limits<double>;
  for (const double value : {0.0, -0.0, 1.5, 2.0 / 3.0, 6.4e-13, 0.0000005, 1.0000005, -123456789.987654321, 1e22,
                             Limits::max(), Limits::lowest(), Limits::infinity()}) {
    char expected[400];
    std::snprintf(expected, sizeof expected, "%f", value);
    EXPECT_EQ(sixDecimals(value), expected);
  }
}

std::string specification(std::int32_t kind, std::int32_t lineColor = kRedLine) {
  const ChartDescription chart{
      .xAxisLabel = "Date", .yAxisLabel = "Values", .kind = kind, .lineColor = lineColor, .seriesColors = {}};
  std::string text;
  for (const std::string& line : chartSpecification(chart, "P", "say \"it\"")) text += line + '\n';
  return text;
}

TEST(ChartSpecification, KindsDifferInScaleLegendAndElement) {
  const std::string data = R"(SOURCE: s = userSource(id("P"))
DATA: xdata  = col(source(s), name("xdata"), unit.category())
DATA: ydata  = col(source(s), name("ydata"))
)";
  const std::string scale = "GRAPH: begin()\nSCALE: cat(dim(1), sort.data())\n";
  const std::string guides = R"(GUIDE: axis(dim(2),label("Values"))
GUIDE: axis(dim(1),label("Date"))
GUIDE: text.title(label("say "it""))
)";
  EXPECT_EQ(specification(kCorrelationBars, kGreenLine),
            data + scale + "SCALE: linear(dim(2), min(-1), max(1))\n" + guides +
                R"(GUIDE: legend(aesthetic(aesthetic.color.interior), label("ACF"))
ELEMENT: interval(position(xdata*ydata), color.interior(color.blue), shape.interior(shape.square), size(size."20"))
GRAPH: end()
)");
  EXPECT_EQ(specification(kAreaChart, kBlueLine),
            data + scale + guides + R"(GUIDE: legend(aesthetic(aesthetic.color), label("Observed"))
ELEMENT: area(position(xdata*ydata), color.interior(color.red), color.exterior(color.red))
GRAPH: end()
)");
  const std::string series = data + R"(DATA: seriesname = col(source(s), name("seriesname"), unit.category())
)" + scale + guides + R"(GUIDE: legend(aesthetic(aesthetic.color), label("Variable"))
ELEMENT: line(position(xdata*ydata), color(seriesname), size(size."1"))
GRAPH: end()
)";
  EXPECT_EQ(specification(kSeriesLines), series);
  EXPECT_EQ(specification(kSeriesLinesToo), series);
  EXPECT_EQ(specification(5), data + scale + guides + "GRAPH: end()\n");
  for (const auto& [lineColor, name] : {std::pair{1, "green"}, {2, "blue"}, {3, "red"}}) {
    EXPECT_NE(specification(kLineChart, lineColor).find(std::string("color(color.") + name + ")"), std::string::npos);
  }
}

}  // namespace
}  // namespace procedures
