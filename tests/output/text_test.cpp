// The free functions: number texts, plotted points, chart language.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "output/chart_points.h"
#include "output/chart_specification.h"
#include "output/number_text.h"

namespace varmodel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Texts = std::vector<std::string>;

TEST(NumberText, ConfidenceLevelIsTheShortestNumber) {
  EXPECT_EQ(confidenceLevelText(95.0), "95%");
  EXPECT_EQ(confidenceLevelText(97.5), "97.5%");
  EXPECT_EQ(confidenceLevelText(99.9), "99.9%");
  EXPECT_EQ(confidenceLevelText(0.0), "0%");
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

TEST(ChartPoints, ObservationsTakeDatesOnlyWhenAllHaveOne) {
  const Texts dates{"Q1", "Q2", "Q3", "Q4", "Q5"};
  EXPECT_THAT(observationLabels(dates, 0, 3), ElementsAre("Q1", "Q2", "Q3"));
  EXPECT_THAT(observationLabels(dates, 2, 3), ElementsAre("Q3", "Q4", "Q5"));
  EXPECT_THAT(observationLabels(dates, 3, 3), ElementsAre("4", "5", "6"));
  EXPECT_THAT(observationLabels({}, 0, 2), ElementsAre("1", "2"));
  EXPECT_THAT(observationLabels(dates, 2, 0), IsEmpty());
}

TEST(ChartPoints, ForecastStepsWithoutADateCountFromOne) {
  EXPECT_THAT(forecastStepLabels({{"Q4 2009", 203}}, 3), ElementsAre("Q4 2009", "F+2", "F+3"));
  EXPECT_THAT(forecastStepLabels({{"a", 1}, {"b", 2}}, 1), ElementsAre("a"));
}

TEST(ChartPoints, SeriesFollowEachOther) {
  SeriesPoints points;
  points.append("x", Texts{"1", "2"}, std::vector<double>{10, 20});
  points.append("y", Texts{"2"}, std::vector<double>{30});
  EXPECT_THAT(points.labels, ElementsAre("1", "2", "2"));
  EXPECT_THAT(points.values, ElementsAre(10, 20, 30));
  EXPECT_THAT(points.seriesNames, ElementsAre("x", "x", "y"));
}

ChartDescription described(std::int32_t kind, std::int32_t lineColor = kRedLine) {
  return {.xAxisLabel = "Date", .yAxisLabel = "Values", .kind = kind, .lineColor = lineColor, .seriesColors = {}};
}

TEST(ChartSpecification, OneSeriesKindsDifferInScaleLegendAndElement) {
  struct Case {
    std::int32_t kind;
    std::int32_t lineColor;
    Texts scale;
    Texts element;
  };
  const std::string observed = R"(GUIDE: legend(aesthetic(aesthetic.color), label("Observed")))";
  const auto line = [](const std::string& color) {
    return "ELEMENT: line(position(xdata*ydata), color(" + color + "), size(size.\"1\"))";
  };
  const Case cases[] = {
      {0, 0, {}, {observed, line("color.red")}},
      {0, 1, {}, {observed, line("color.green")}},
      {0, 2, {}, {observed, line("color.blue")}},
      {0, 3, {}, {observed, line("color.red")}},
      {1,
       2,
       {"SCALE: linear(dim(2), min(-1), max(1))"},
       {R"(GUIDE: legend(aesthetic(aesthetic.color.interior), label("ACF")))",
        "ELEMENT: interval(position(xdata*ydata), color.interior(color.blue), shape.interior(shape.square), "
        "size(size.\"20\"))"}},
      {2,
       0,
       {},
       {observed, "ELEMENT: area(position(xdata*ydata), color.interior(color.red), color.exterior(color.red))"}},
      {5, 0, {}, {}},
      {-1, 0, {}, {}},
  };
  for (const Case& c : cases) {
    Texts expected{
        R"(SOURCE: s = userSource(id("P")))", R"(DATA: xdata  = col(source(s), name("xdata"), unit.category()))",
        R"(DATA: ydata  = col(source(s), name("ydata")))", "GRAPH: begin()", "SCALE: cat(dim(1), sort.data())"};
    expected.insert(expected.end(), c.scale.begin(), c.scale.end());
    for (const char* guide : {R"(GUIDE: axis(dim(2),label("Values")))", R"(GUIDE: axis(dim(1),label("Date")))",
                              R"(GUIDE: text.title(label("say "it"")))"}) {
      expected.push_back(guide);
    }
    expected.insert(expected.end(), c.element.begin(), c.element.end());
    expected.push_back("GRAPH: end()");
    EXPECT_EQ(chartSpecification(described(c.kind, c.lineColor), "P", "say \"it\""), expected) << c.kind;
  }
}

TEST(ChartSpecification, SeriesKindsColourBySeriesInNameOrder) {
  Texts expected{R"(SOURCE: s = userSource(id("P")))",
                 R"(DATA: xdata  = col(source(s), name("xdata"), unit.category()))",
                 R"(DATA: ydata  = col(source(s), name("ydata")))",
                 R"(DATA: seriesname = col(source(s), name("seriesname"), unit.category()))",
                 "GRAPH: begin()",
                 "SCALE: cat(dim(1), sort.data())",
                 R"(GUIDE: axis(dim(2),label("Values")))",
                 R"(GUIDE: axis(dim(1),label("Date")))",
                 R"(GUIDE: text.title(label("T")))",
                 R"(GUIDE: legend(aesthetic(aesthetic.color), label("Variable")))",
                 R"(ELEMENT: line(position(xdata*ydata), color(seriesname), size(size."1")))",
                 "GRAPH: end()"};
  EXPECT_EQ(chartSpecification(described(3), "P", "T"), expected);
  EXPECT_EQ(chartSpecification(described(4), "P", "T"), expected);
  ChartDescription coloured = described(3);
  coloured.seriesColors = {{"Observed", "color.red"}, {"Fitted", "color.blue"}, {"Forecast", "color.blue"}};
  expected.insert(expected.begin() + 6,
                  "SCALE: cat(aesthetic(aesthetic.color), map((\"Fitted\", color.blue), (\"Forecast\", color.blue), "
                  "(\"Observed\", color.red)))");
  EXPECT_EQ(chartSpecification(coloured, "P", "T"), expected);
}

}  // namespace
}  // namespace varmodel
