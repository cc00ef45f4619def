// Plots in the terminal. What gnuplot draws is read back as the character grid it is.

#include "workbench/plots/plots.h"

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <limits>
#include <numeric>
#include <random>

#include "tests/render/render_fixture.h"
#include "workbench/plots/category_ticks.h"
#include "workbench/plots/gnuplot.h"
#include "workbench/plots/gnuplot_script.h"
#include "workbench/plots/thinning.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

#define SKIP_WITHOUT_GNUPLOT() \
  if (!runGnuplot("")) GTEST_SKIP() << "gnuplot is not installed"

std::vector<std::size_t> counting(std::size_t count) {
  std::vector<std::size_t> places(count);
  std::iota(places.begin(), places.end(), 0);
  return places;
}

// Builds a document of charts: chart("Residuals").series("realgdp", {1, 2}).
class ChartDocument {
 public:
  ChartDocument& chart(const std::string& title, const std::string& element = "line") {
    rapidjson::Document item = parseJson(R"x({"type": "chart", "columns": {"xdata": [], "ydata": [], "seriesname": []},
      "vizl": ["DATA: xdata = col(source(s), name(\"xdata\"), unit.category())", "SCALE: cat(dim(1), sort.data())",
               "DATA: ydata = col(source(s), name(\"ydata\"))",
               "DATA: seriesname = col(source(s), name(\"seriesname\"))"]})x");
    std::vector<std::string> lines{"ELEMENT: " + element + "(position(xdata*ydata), color(seriesname))"};
    for (const char* guide : {"axis(dim(1),", "axis(dim(2),", "text.title("}) {
      lines.push_back("GUIDE: " + std::string(guide) + "label(\"" + title + "\"))");
    }
    if (element == "interval") lines.push_back("SCALE: linear(dim(2), min(-1), max(1))");
    for (const std::string& line : lines) item["vizl"].PushBack(rapidjson::Value(line, pool()), pool());
    json_["items"].PushBack(rapidjson::Value(item, pool()), pool());
    return *this;
  }

  ChartDocument& series(const std::string& name, const std::vector<double>& values, const std::string& label = "") {
    rapidjson::Value& columns = json_["items"][json_["items"].Size() - 1]["columns"];
    for (std::size_t i = 0; i < values.size(); ++i) {
      columns["xdata"].PushBack(rapidjson::Value(label + std::to_string(i + 1), pool()), pool());
      columns["ydata"].PushBack(std::isnan(values[i]) ? rapidjson::Value() : rapidjson::Value(values[i]), pool());
      columns["seriesname"].PushBack(rapidjson::Value(name, pool()), pool());
    }
    return *this;
  }

  Plots plots(const Locale& locale = {}) const { return paintPlots(json_, {.width = 80}, locale); }
  std::string paint(const Locale& locale = {}) const { return plots(locale).text; }

 private:
  rapidjson::Document::AllocatorType& pool() { return json_.GetAllocator(); }

  rapidjson::Document json_ = parseJson(R"({"items": []})");
};

TEST(Thinning, KeepsExtremesInAtMostTwoPointsAColumn) {
  constexpr std::size_t kPoints = 50000;
  constexpr std::size_t kColumns = 80;
  std::mt19937 random(1);
  std::normal_distribution<double> normal;
  std::vector<double> values(kPoints);
  for (double& value : values) value = normal(random);
  values[31234] = 40;
  values[31235] = -40;
  const auto kept = thinSeries(counting(kPoints), values, kPoints, kColumns);
  EXPECT_LE(kept.size(), 2 * kColumns);
  EXPECT_THAT(kept, testing::IsSupersetOf({PlotPoint{31234, 40}, PlotPoint{31235, -40}}));
  EXPECT_TRUE(std::ranges::is_sorted(kept, {}, &PlotPoint::place));
}

TEST(Thinning, GapsOfAColumnStayAndFewPointsAreLeftAlone) {
  const auto few = thinSeries({0, 1, 2}, {1, kGap, 3}, 3, 2);
  ASSERT_EQ(few.size(), 3U);
  EXPECT_TRUE(std::isnan(few[1].value));
  const auto many = thinSeries(counting(9), {1, 2, 3, kGap, kGap, kGap, 5, kGap, 4}, 9, 3);
  ASSERT_EQ(many.size(), 5U);
  EXPECT_EQ(many[1], (PlotPoint{2, 3}));
  EXPECT_TRUE(std::isnan(many[2].value));
  EXPECT_EQ(many[3], (PlotPoint{6, 5}));
}

TEST(Ticks, StepsAreRoundInYears) {
  std::vector<std::string> quarters;
  std::vector<std::string> months;
  std::vector<std::string> numbers;
  for (int i = 0; i < 203; ++i) {
    quarters.push_back(fmt::format("{}Q{}", 1959 + i / 4, i % 4 + 1));
    months.push_back(fmt::format("{:02} {}", i % 12 + 1, 2001 + i / 12));
    numbers.push_back(std::to_string(i + 1));
  }
  EXPECT_THAT(categoryTicks(quarters, 6), ElementsAre(0, 40, 80, 120, 160, 200));
  EXPECT_THAT(categoryTicks(months, 6), ElementsAre(0, 60, 120, 180));
  EXPECT_THAT(categoryTicks(numbers, 6), ElementsAre(0, 50, 100, 150, 200));
  EXPECT_THAT(categoryTicks({"2001Q1", "2001Q2", "2001Q3", "2001Q4", "2002Q1"}, 3), ElementsAre(0, 2, 4));
  EXPECT_THAT(categoryTicks({"only"}, 1), ElementsAre(0));
}

TEST(Script, TextsAreLiteralsThatEndWhereTheyShould) {
  EXPECT_EQ(gnuplotText("it's"), "'it''s'");
  EXPECT_EQ(gnuplotText("'; system('id') #"), "'''; system(''id'') #'");
  EXPECT_EQ(gnuplotText("a\nplot x\x1e\\"), "'a^Jplot x^^\\'");
}

TEST(Plots, HostileNamesAreDrawnAndNothingElseHappens) {
  SKIP_WITHOUT_GNUPLOT();
  const std::string trap = testing::TempDir() + "plots_trap";
  std::remove(trap.c_str());
  std::vector<std::string> names = hostileNames();
  for (const char* format : {"`touch {}`", "'; system('touch {}') #", "\n!touch {}\n", "' 0); set output '{}'; #",
                             "@ARG1 {{ $(touch {})", "\"; system \"touch {}"}) {
    names.push_back(fmt::format(fmt::runtime(format), trap));
  }
  ChartDocument document;
  for (const std::string& name : names) document.chart(name).series(name, {1, 2, 1}, name).series("b", {3, 1}, name);
  const std::string text = document.paint();
  EXPECT_FALSE(std::ifstream(trap).good());
  EXPECT_THAT(text, Not(HasSubstr("cannot draw")));
  const auto lines = linesOf(text);
  for (const std::string& line : lines) EXPECT_EQ(visibleText(line), line);
  const auto axis = [](const std::string& line) { return line.find("+------") != std::string::npos; };
  EXPECT_EQ(static_cast<std::size_t>(std::ranges::count_if(lines, axis)), names.size());
}

TEST(Plots, LinesFitTheWidthAndShowSeriesGapsAndDates) {
  SKIP_WITHOUT_GNUPLOT();
  std::vector<double> rising;
  for (int i = 0; i < 60; ++i) rising.push_back(i >= 20 && i < 40 ? kGap : i);
  const auto lines = linesOf(ChartDocument().chart("T").series("a", rising).series("b", {59, 59}).paint());
  ASSERT_GE(lines.size(), 10U);
  EXPECT_EQ(lines[0], "T");
  EXPECT_EQ(lines[1], "T by T, 1 to 60: * a  # b");
  EXPECT_THAT(lines.back(), testing::MatchesRegex(" *1 +11 +21 +31 +41 +51"));
  EXPECT_LE(lines.size(), static_cast<std::size_t>(kPlotHeight) + 2);
  EXPECT_THAT(lines[2], HasSubstr("#"));
  EXPECT_THAT(lines[lines.size() - 2], HasSubstr("+**"));  // the lowest values lie on the axis, not behind it
  std::size_t withGlyph = 0;
  for (std::size_t i = 2; i + 2 < lines.size(); ++i) {
    EXPECT_LE(lines[i].size(), 80U);
    withGlyph += std::size_t{lines[i].find('*') != std::string::npos};
  }
  EXPECT_GE(withGlyph, 6U);   // both thirds with values
  EXPECT_LE(withGlyph, 10U);  // not the rows in between
}

TEST(Plots, BarsStandOnTheZeroLineWithTheirValues) {
  SKIP_WITHOUT_GNUPLOT();
  const std::string text = ChartDocument().chart("ACF", "interval").series("r", {1, -0.5, 0.06}).paint({","});
  const auto lines = linesOf(text);
  ASSERT_EQ(lines.size(), 17U);
  EXPECT_THAT(lines[2], testing::MatchesRegex(" *1,00"));
  EXPECT_THAT(lines[3], HasSubstr("*"));
  EXPECT_THAT(text, HasSubstr("-0,50 "));
  EXPECT_THAT(lines[8], HasSubstr("0,06"));  // above the zero line
  EXPECT_THAT(lines[9], testing::MatchesRegex(" *0 [|+]-+[*]-+[*]-+[*]-+.*"));
}

TEST(Plots, WhatCannotBeDrawnIsSaid) {
  SKIP_WITHOUT_GNUPLOT();
  ChartDocument document;
  document.chart("none").chart("missing").series("a", {kGap, kGap}).chart("huge").series("a", {1e308, -1e308});
  const std::string text = document.chart("one").series("a", {5}).paint();
  EXPECT_THAT(text, HasSubstr("The chart has no points."));
  EXPECT_THAT(text, HasSubstr("All values are missing."));
  EXPECT_THAT(text, HasSubstr("*"));  // of the last chart, drawn all the same
}

TEST(Plots, WithoutGnuplotTheRemedyIsSaid) {
  const char* path = std::getenv("PATH");
  const std::string before = path != nullptr ? path : "";
  setenv("PATH", "", 1);
  const Plots plots = ChartDocument().chart("T").series("a", {1}).plots();
  setenv("PATH", before.c_str(), 1);
  EXPECT_EQ(plots.text, "");
  EXPECT_THAT(plots.problem, HasSubstr("gnuplot-nox"));
}

}  // namespace

}  // namespace workbench
