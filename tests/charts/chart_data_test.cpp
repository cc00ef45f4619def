#include "workbench/charts/chart_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "tests/charts/chart_fixture.h"
#include "tests/render/comma_language.h"
#include "workbench/render/chart_description.h"

namespace workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsNan;

constexpr const char* kForecast =
    R"({"xdata": ["1959Q1", "1959Q2", "1959Q1", "1959Q2", "1959Q3"], "ydata": [1, 2, 1.5, null, 9],
        "seriesname": ["Observed", "Observed", "Fitted", "Fitted", "Forecast"]})";

TEST(ChartData, KeepsCategoriesAndSeriesInTheOrderOfTheData) {
  const ChartData forecast = chartOfKind(procedures::kSeriesLines, kForecast).data;
  EXPECT_THAT(forecast.categories, ElementsAre("1959Q1", "1959Q2", "1959Q3"));
  ASSERT_EQ(forecast.series.size(), 3U);
  EXPECT_EQ(forecast.series[1].name, "Fitted");
  EXPECT_THAT(forecast.series[1].x, ElementsAre(0U, 1U));
  EXPECT_THAT(forecast.series[1].y, ElementsAre(1.5, IsNan()));
  EXPECT_THAT(forecast.series[2].x, ElementsAre(2U));
  EXPECT_TRUE(forecast.series[2].contiguous());

  const char* letters = R"({"xdata": ["b", "c", "a"], "ydata": [1, 2, 3]})";
  EXPECT_THAT(chartOfKind(procedures::kLineChart, letters).data.categories, ElementsAre("b", "c", "a"));
  auto unsorted = declared({"xdata", "ydata"});
  unsorted.erase(unsorted.begin());
  unsorted.push_back("ELEMENT: line(position(xdata*ydata))");
  const ChartData sorted = chartFrom(unsorted, letters).data;
  EXPECT_THAT(sorted.categories, ElementsAre("a", "b", "c"));
  EXPECT_THAT(sorted.series[0].x, ElementsAre(1U, 2U, 0U));
  EXPECT_FALSE(sorted.series[0].contiguous());
}

// Rows that belong to other elements leave no gap in a single series, and none at its ends.
TEST(ChartData, TakesFromSharedRowsWhatBelongsToAnElement) {
  const Chart chart = chartDeclaring(
      {"x", "y", "name", "sum"},
      {"ELEMENT: interval(position(x*y), color(name), stack())", "ELEMENT: line(position(x*sum), label(\"Sum\"))"},
      R"({"x": ["0", "1", "1", "2", "2", "3", "3", "4"], "y": [1, 2, 3, 4, 5, 6, 7, 8],
          "name": ["a", "a", "b", "a", "b", "a", "b", "a"], "sum": [null, 5, null, null, null, null, 13, null]})");
  ASSERT_EQ(chart.data.series.size(), 3U);
  const ChartSeries& sum = chart.data.series[2];
  EXPECT_EQ(sum.name, "Sum");
  EXPECT_THAT(sum.x, ElementsAre(1U, 2U, 2U, 3U));  // one row a place that has a value, all where there is none
  EXPECT_THAT(sum.y, ElementsAre(5, IsNan(), IsNan(), 13));
  const Chart alone = chartOfKind(procedures::kLineChart, R"({"xdata": ["1", "2"], "ydata": [null, 2]})");
  EXPECT_THAT(alone.data.series.at(0).y, ElementsAre(IsNan(), 2)) << "rows of a single element are all its own";
}

TEST(ChartData, APanelHasAChartForEachPairOfHeadings) {
  const Chart panel = chartDeclaring({"x", "y", "response", "shock"},
                                     {"PANEL: rows(response), columns(shock)", "ELEMENT: line(position(x*y))"},
                                     R"({"x": ["0", "1", "0", "1", "0", "1"], "y": [1, 2, -3, 4, 5, 6],
                                         "response": ["gdp", "gdp", "gdp", "gdp", "m1", "m1"],
                                         "shock": ["gdp", "gdp", "m1", "m1", "m1", "m1"]})");
  EXPECT_THAT(panel.panelRows, ElementsAre("gdp", "m1"));
  ASSERT_EQ(panel.cells.size(), 4U);
  EXPECT_EQ(panel.cells[1].spec.title, "gdp / m1");
  EXPECT_THAT(panel.cells[1].data.series.at(0).y, ElementsAre(-3, 4));
  EXPECT_EQ(panel.cells[0].besides->min, -3) << "the value axis of a row";
  EXPECT_EQ(panel.cells[3].besides->min, 5);
  EXPECT_EQ(panel.cells[2].data.problem.kind, ChartProblem::Kind::noPoints);
  EXPECT_THAT(describeChart(panel), HasSubstr("Panel of 2 by 2 charts, rows: gdp, m1; columns: gdp, m1."));
}

TEST(ChartData, SaysWhyThereIsNothingToDraw) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"ydata": [1]})", "no data column 'xdata'"},
      {R"({"xdata": ["1"], "ydata": 3})", "no data column 'ydata'"},
      {R"({"xdata": ["1"], "ydata": [1]})", "no data column 'seriesname'"},
      {R"({"xdata": [], "ydata": [], "seriesname": []})", "no points"},
      {"[]", "no data column"},
  };
  for (const auto& [columns, problem] : cases)
    EXPECT_THAT(describeChart(chartOfKind(procedures::kSeriesLines, columns)), HasSubstr(problem));
  EXPECT_THAT(describeChart(chartOfKind(9, R"({"xdata": ["1"], "ydata": [1]})")), HasSubstr("nothing to draw"));
}

TEST(ChartData, NamesSeriesApartThatLookAlike) {
  const ChartData data = chartOfKind(procedures::kSeriesLines, R"({"xdata": ["1", "1"], "ydata": [1, 2],
                                                                 "seriesname": ["\u0001", "^A"]})")
                             .data;
  ASSERT_EQ(data.series.size(), 2U);
  EXPECT_EQ(data.series[0].name, "^A");
  EXPECT_EQ(data.series[1].name, "^A (2)");
}

TEST(ChartDescription, TellsTheNumbers) {
  const Chart chart = chartOfKind(procedures::kSeriesLines, kForecast);
  EXPECT_EQ(describeChart(chart),
            "Line chart: Title. Share by Date, 1959Q1 to 1959Q3. Observed: 2 values from 1 at 1959Q1 to 2 at 1959Q2; "
            "lowest 1 at 1959Q1, highest 2 at 1959Q2. Fitted: 1.5 at 1959Q1. Forecast: 9 at 1959Q3.");
  EXPECT_THAT(describeChart(chart, commaLanguage()), HasSubstr("Fitted: 1,5 at 1959Q1."));
}

TEST(ChartDescription, TellsBandsPointsAndGuides) {
  const Chart fan = chartDeclaring(
      {"x", "low", "high"}, {"ELEMENT: band(position(x*low*high), label(\"95%\"))", "GUIDE: line(dim(2), at(0))"},
      R"({"x": ["a", "b"], "low": [1, -2.5], "high": [2, 7]})");
  EXPECT_THAT(describeChart(fan), HasSubstr("95%: band from 1 to 2 at a to -2.5 to 7 at b. A line lies at 0."));
  auto lines = declared({"said", "re", "im"});
  for (const char* line : {"ELEMENT: point(position(re*im), text(said), label(\"Roots\"))",
                           "GUIDE: circle(at(0, 0), radius(1))", "GUIDE: axis(dim(1),label(\"Real\"))"})
    lines.emplace_back(line);
  EXPECT_THAT(describeChart(chartFrom(lines, R"({"re": [0.5, 1], "im": [0, 0.1], "said": ["0.5", "cycle 4"]})")),
              HasSubstr("Points: Chart.  by Real. Roots: 0.5 | cycle 4. A circle of radius 1 lies around 0 and 0."));
}

}  // namespace
}  // namespace workbench
