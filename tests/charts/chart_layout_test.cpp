#include "workbench/charts/chart_layout.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

#include "tests/charts/chart_fixture.h"
#include "workbench/charts/thinning.h"
#include "workbench/charts/ticks.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::IsNan;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

std::vector<std::size_t> counting(std::size_t count) {
  std::vector<std::size_t> places(count);
  std::iota(places.begin(), places.end(), 0);
  return places;
}

TEST(Thinning, KeepsExtremesInAtMostTwoPointsAColumn) {
  constexpr std::size_t kPoints = 50000;
  constexpr std::size_t kColumns = 80;
  std::mt19937 random(1);
  std::normal_distribution<double> normal;
  std::vector<double> values(kPoints);
  for (double& value : values) value = normal(random);
  values[31234] = 40;
  values[31235] = -40;
  const auto kept = drawnPoints(counting(kPoints), values, {0, kPoints}, kColumns);
  EXPECT_LE(kept.size(), 2 * kColumns);
  EXPECT_THAT(kept, testing::IsSupersetOf({std::size_t{31234}, std::size_t{31235}}));
  EXPECT_TRUE(std::ranges::is_sorted(kept));
}

TEST(Thinning, GapsOfAColumnStayAndFewPointsAreLeftAlone) {
  EXPECT_THAT(drawnPoints({0, 1, 2}, {1, kGap, 3}, {0, 3}, 2), ElementsAre(0, 1, 2));
  const std::vector<double> values{1, 2, 3, kGap, kGap, kGap, 5, kGap, 4};
  EXPECT_THAT(drawnPoints(counting(9), values, {0, 9}, 3), ElementsAre(0, 2, 3, 6, 8));
  EXPECT_THAT(drawnPoints(counting(9), values, {6, 3}, 9), ElementsAre(6, 7, 8)) << "of the places in the range";
}

std::vector<std::string> labels(int count, const std::function<std::string(int)>& label) {
  std::vector<std::string> made;
  for (int i = 0; i < count; ++i) made.push_back(label(i));
  return made;
}

// The labels that get a tick when there is room for `most`.
std::vector<std::string> ticked(const std::vector<std::string>& all, double most) {
  std::vector<std::string> shown;
  const double apart = static_cast<double>(all.size()) / most;
  for (const std::size_t place : ticksWithin(chooseRung(tickLadder(all), apart), 0, all.size()))
    shown.push_back(all[place]);
  return shown;
}

TEST(Ticks, StandOnRoundYearsMonthsAndNumbers) {
  const auto quarter = [](int first) { return [=](int i) { return fmt::format("{}Q{}", first + i / 4, i % 4 + 1); }; };
  EXPECT_THAT(ticked(labels(203, quarter(1959)), 6), ElementsAre("1960Q1", "1970Q1", "1980Q1", "1990Q1", "2000Q1"));
  EXPECT_THAT(ticked(labels(8, quarter(2001)), 4), ElementsAre("2001Q1", "2001Q3", "2002Q1", "2002Q3"));
  EXPECT_THAT(ticked(labels(8, quarter(2001)), 3), ElementsAre("2001Q1", "2002Q1")) << "no step of three quarters";
  EXPECT_THAT(ticked(labels(41, quarter(2000)), 3), ElementsAre("2000Q1", "2005Q1", "2010Q1"));
  const auto fromAutumn = labels(20, [&](int i) { return quarter(2001)(i + 2); });
  EXPECT_THAT(ticked(fromAutumn, 5), ElementsAre("2002Q1", "2003Q1", "2004Q1", "2005Q1", "2006Q1"));
  const auto month = [](int i) { return fmt::format("{:02} {}", i % 12 + 1, 2001 + i / 12); };
  EXPECT_THAT(ticked(labels(203, month), 6), ElementsAre("01 2005", "01 2010", "01 2015"));
  EXPECT_THAT(ticked(labels(40, [](int i) { return std::to_string(i + 1983); }), 4),
              ElementsAre("1990", "2000", "2010", "2020"));
  // The first residual of a model with four lags is that of observation 5.
  EXPECT_THAT(ticked(labels(199, [](int i) { return std::to_string(i + 5); }), 6),
              ElementsAre("50", "100", "150", "200"));
  EXPECT_THAT(ticked(labels(12, [](int i) { return std::to_string(i + 1); }), 12).size(), 12U);
}

TEST(Ticks, OfDaysBeginMonthsAndYears) {
  std::vector<std::string> days;
  for (const int month : {11, 12, 1, 2, 3}) {
    for (int day = month == 11 ? 20 : 1; day <= 28; ++day)
      if (day % 7 < 5) days.push_back(fmt::format("{}-{:02}-{:02}", month > 10 ? 2003 : 2004, month, day));
  }
  EXPECT_THAT(ticked(days, 5), ElementsAre("2003-12-01", "2004-01-01", "2004-02-01", "2004-03-01"));
  EXPECT_GT(ticked(days, 40).size(), 15U);
}

TEST(Ticks, OfOtherLabelsAreEquallySpacedFromTheFirst) {
  EXPECT_THAT(ticked({"a", "b", "c", "d"}, 2), ElementsAre("a", "c"));
  EXPECT_THAT(ticked({"only"}, 1), ElementsAre("only"));
  const auto ladder = tickLadder(labels(100, [](int i) { return std::to_string(i); }));
  EXPECT_THAT(ticksWithin(chooseRung(ladder, 50), 10, 40), ElementsAre(10)) << "no round one: where the part begins";
  EXPECT_THAT(ticksWithin(chooseRung(ladder, 9), 35, 70), ElementsAre(40, 50, 60));
}

std::string forecastColumns(int observed, int ahead) {
  std::string x;
  std::string y;
  std::string name;
  const auto add = [&](int place, double value, const char* series) {
    const char* comma = x.empty() ? "" : ", ";
    x += fmt::format("{}\"{}\"", comma, place);
    y += fmt::format("{}{}", comma, value);
    name += fmt::format("{}\"{}\"", comma, series);
  };
  for (int i = 0; i < observed; ++i) add(i, 100 + i, "Observed");
  for (int i = 0; i < observed; ++i) add(i, 100.5 + i, "Fitted");
  for (int i = 0; i < ahead; ++i) add(observed + i, 500, "Forecast");
  return fmt::format("{{\"xdata\": [{}], \"ydata\": [{}], \"seriesname\": [{}]}}", x, y, name);
}

TEST(ChartLayout, JoinsAForecastAndShowsTheLastPartOfALongHistory) {
  const ChartLayout layout = layOutChart(chartOfKind(procedures::kSeriesLines, forecastColumns(200, 8)));
  EXPECT_EQ(layout.series[2].continues, std::size_t{0});
  EXPECT_EQ(layout.series[0].continues, std::nullopt);
  EXPECT_EQ(layout.firstShown, 160U);  // six times the horizon, the forecasts among them
  EXPECT_EQ(layOutChart(chartOfKind(procedures::kSeriesLines, forecastColumns(1000, 1))).firstShown, 971U);
  EXPECT_EQ(layOutChart(chartOfKind(procedures::kSeriesLines, forecastColumns(60, 8))).firstShown, 0U);
  EXPECT_EQ(layOutChart(chartOfKind(procedures::kSeriesLines, forecastColumns(200, 0))).firstShown, 0U);
}

TEST(ChartLayout, ShowsTheWindowThatAStatementAsksForFirst) {
  const auto firstShown = [](const std::string& window) {
    std::vector<std::string> lines = declared({"xdata", "ydata"});
    lines.insert(lines.end(), {window, "ELEMENT: interval(position(xdata*ydata))"});
    const Chart chart = chartFrom(lines, forecastColumns(80, 0));
    EXPECT_EQ(chart.spec.notUnderstood.empty(), chart.spec.window.has_value()) << window;
    return layOutChart(chart).firstShown;
  };
  EXPECT_EQ(firstShown("GUIDE: window(dim(1), last(60))"), 20U);
  for (const char* whole : {"GUIDE: window(dim(1), last(80))", "GUIDE: window(dim(1), last(500))",
                            "GUIDE: window(dim(1), last(0))", "GUIDE: window(dim(2), last(60))"})
    EXPECT_EQ(firstShown(whole), 0U) << whole;
}

TEST(ChartLayout, DrawsALineBelowThoseThatWouldHideIt) {
  const auto under = [](const std::string& columns) {
    std::vector<bool> flags;
    for (const auto& series : layOutChart(chartOfKind(procedures::kSeriesLines, columns)).series)
      flags.push_back(series.under);
    return flags;
  };
  EXPECT_THAT(under(forecastColumns(50, 3)), ElementsAre(true, false, false));
  EXPECT_THAT(under(R"({"xdata": ["1", "2", "3", "1", "2", "3"], "ydata": [1, 5, 2, 4, 1, 3],
                        "seriesname": ["a", "a", "a", "b", "b", "b"]})"),
              ElementsAre(false, false));
}

TEST(ChartLayout, StacksPositiveAndNegativeValuesApart) {
  const Chart chart = chartDeclaring({"x", "y", "name"}, {"ELEMENT: interval(position(x*y), color(name), stack())"},
                                     R"({"x": ["1", "2", "1", "2", "1", "2"], "y": [1, -2, 3, null, -5, 4],
                                         "name": ["a", "a", "b", "b", "c", "c"]})");
  const ChartLayout layout = layOutChart(chart);
  EXPECT_THAT(layout.series[0].low, ElementsAre(0, -2));
  EXPECT_THAT(layout.series[0].high, ElementsAre(1, 0));
  EXPECT_THAT(layout.series[1].low, ElementsAre(1, IsNan()));
  EXPECT_THAT(layout.series[1].high, ElementsAre(4, IsNan()));
  EXPECT_THAT(layout.series[2].low, ElementsAre(-5, 0));
  EXPECT_THAT(layout.series[2].high, ElementsAre(0, 4));
  EXPECT_EQ(valueExtent(chart, layout)->max, 4);
}

TEST(ChartLayout, NestsBandsByWidthAndColoursSeriesByName) {
  const Chart chart = chartDeclaring(
      {"x", "y", "l1", "u1", "l2", "u2"},
      {"ELEMENT: band(position(x*l1*u1), color.interior(color.blue), label(\"50%\"))",
       "ELEMENT: band(position(x*l2*u2), color.interior(color.blue), label(\"95%\"))", "ELEMENT: line(position(x*y))"},
      R"({"x": ["1", "2"], "y": [5, 5], "l1": [4, 4], "u1": [6, 6], "l2": [1, 0], "u2": [9, 10]})");
  const ChartLayout layout = layOutChart(chart);
  EXPECT_EQ(layout.series[0].depth, 1U);
  EXPECT_EQ(layout.series[1].depth, 0U);
  EXPECT_EQ(layout.series[0].color + layout.series[2].color, "blue3");
}

}  // namespace
}  // namespace workbench
