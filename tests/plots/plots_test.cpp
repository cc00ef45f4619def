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

#include "tests/charts/chart_fixture.h"
#include "tests/render/comma_language.h"
#include "workbench/plots/gnuplot.h"
#include "workbench/plots/gnuplot_script.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double kGap = std::numeric_limits<double>::quiet_NaN();

#define SKIP_WITHOUT_GNUPLOT() \
  if (!runGnuplot("")) GTEST_SKIP() << "gnuplot is not installed"

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

  // A chart from its statements, over columns declared in their order: the first of categories.
  ChartDocument& drawing(const std::string& columns, const std::vector<std::string>& statements) {
    rapidjson::Document item = parseJson(R"({"type": "chart", "name": "T", "vizl": [], "columns": )" + columns + "}");
    std::vector<std::string> names;
    for (const auto& column : item["columns"].GetObject()) names.emplace_back(column.name.GetString());
    std::vector<std::string> lines = declared(names);
    lines.insert(lines.end(), statements.begin(), statements.end());
    for (const std::string& line : lines) item["vizl"].PushBack(rapidjson::Value(line, pool()), pool());
    json_["items"].PushBack(rapidjson::Value(item, pool()), pool());
    return *this;
  }

  Plots plots(const Language& language = {}) const { return paintPlots(json_, {.width = 80}, language); }
  std::string paint(const Language& language = {}) const { return plots(language).text; }

 private:
  rapidjson::Document::AllocatorType& pool() { return json_.GetAllocator(); }

  rapidjson::Document json_ = parseJson(R"({"items": []})");
};

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
  EXPECT_THAT(lines.back(), testing::MatchesRegex(" *10 +20 +30 +40 +50 +60"));
  EXPECT_LE(lines.size(), 17U);
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

TEST(Plots, GlyphsStayWithTheirNames) {
  SKIP_WITHOUT_GNUPLOT();
  ChartDocument document;
  document.chart("T");
  for (const char* name : {"realgdp", "realcons", "realinv", "realgovt", "realdpi", "cpi", "m1"})
    document.series(name, {1, 2});
  const auto lines = linesOf(document.paint());
  EXPECT_THAT(lines[1], testing::EndsWith("@ realdpi  & cpi"));
  EXPECT_EQ(lines[2], "= m1");
}

TEST(Plots, BarsStandOnTheZeroLineWithTheirValues) {
  SKIP_WITHOUT_GNUPLOT();
  const std::string text = ChartDocument().chart("ACF", "interval").series("r", {1, -0.5, 0.06}).paint(commaLanguage());
  const auto lines = linesOf(text);
  ASSERT_EQ(lines.size(), 17U);
  EXPECT_THAT(lines[2], testing::MatchesRegex(" *1,00"));
  EXPECT_THAT(lines[3], HasSubstr("*"));
  EXPECT_THAT(text, HasSubstr("-0,50 "));
  EXPECT_THAT(lines[8], HasSubstr("0,06"));  // above the zero line
  EXPECT_THAT(lines[9], testing::MatchesRegex(" *0 [|+]-+[*]-+[*]-+[*]-+.*"));
  const auto positive = linesOf(
      ChartDocument().drawing(R"({"x": ["1", "2"], "y": [4, 5]})", {"ELEMENT: interval(position(x*y))"}).paint());
  EXPECT_THAT(positive[positive.size() - 2], testing::MatchesRegex(" *0 [+]-.*")) << "also where no value is near zero";
}

std::size_t countOf(const std::vector<std::string>& lines, char glyph, std::size_t from, std::size_t to) {
  std::size_t count = 0;
  for (std::size_t row = 2; row + 2 < lines.size(); ++row) {
    const std::string part = lines[row].substr(std::min(from, lines[row].size()), to - from);
    count += static_cast<std::size_t>(std::ranges::count(part, glyph));
  }
  return count;
}

TEST(Plots, BandsLieAroundTheirLineAndJoinTheHistory) {
  SKIP_WITHOUT_GNUPLOT();
  const auto lines = linesOf(
      ChartDocument()
          .drawing(R"({"x": ["1", "2", "3", "4", "5"], "y": [5, 5, 5, 5, 5], "name": ["a", "a", "a", "b", "b"],
                       "l": [null, null, null, 3, 1], "u": [null, null, null, 7, 9]})",
                   {"ELEMENT: band(position(x*l*u), label(\"95%\"))", "ELEMENT: line(position(x*y), color(name))"})
          .paint());
  EXPECT_THAT(lines[1], HasSubstr(". 95%  * a  # b"));
  EXPECT_EQ(countOf(lines, '.', 0, 40), 0U) << "before the band";
  EXPECT_GT(countOf(lines, '.', 65, 80), countOf(lines, '.', 45, 60)) << "it widens from the last value on";
  EXPECT_EQ(countOf(lines, '*', 45, 80), 0U) << "the history ends where the other series begins";
}

TEST(Plots, StacksFillWhatTheyStandFor) {
  SKIP_WITHOUT_GNUPLOT();
  const std::string columns = R"({"x": ["1", "2", "1", "2"], "y": [25, 25, 75, 75], "name": ["a", "a", "b", "b"]})";
  const auto areas =
      linesOf(ChartDocument().drawing(columns, {"ELEMENT: area(position(x*y), color(name), stack())"}).paint());
  const double share = static_cast<double>(countOf(areas, '*', 0, 80)) /
                       static_cast<double>(countOf(areas, '*', 0, 80) + countOf(areas, '#', 0, 80));
  EXPECT_NEAR(share, 0.25, 0.08);  // a plot has but 13 rows
  EXPECT_GT(countOf(areas, '*', 0, 80) + countOf(areas, '#', 0, 80), 380U) << "without gaps";
  const auto bars = linesOf(ChartDocument()
                                .drawing(R"({"x": ["1", "1"], "y": [4, -4], "name": ["a", "b"]})",
                                         {"ELEMENT: interval(position(x*y), color(name), stack())"})
                                .paint());
  const auto rowsWith = [&](char glyph) {
    std::vector<std::size_t> rows;
    for (std::size_t row = 2; row < bars.size(); ++row)
      if (bars[row].find(glyph) != std::string::npos) rows.push_back(row);
    return rows;
  };
  ASSERT_FALSE(rowsWith('*').empty() || rowsWith('#').empty());
  EXPECT_LE(rowsWith('*').back(), rowsWith('#').front()) << "negative values hang below zero";
}

TEST(Plots, EqualAxesMakeARoundCircleAndAPanelItsCellsSideBySide) {
  SKIP_WITHOUT_GNUPLOT();
  const auto sizeOfCircle = [](const char* columns) {
    const auto lines =
        linesOf(ChartDocument()
                    .drawing(columns, {"SCALE: equal(dim(1), dim(2))", "GUIDE: circle(at(0, 0), radius(1))",
                                       "ELEMENT: point(position(re*im))"})
                    .paint());
    std::pair<double, double> size{0, 0};  // width and height
    for (const std::string& line : lines) {
      const std::size_t first = line.find('.', 5);
      if (first == std::string::npos || line.find('|') == std::string::npos) continue;
      size.first = std::max(size.first, static_cast<double>(line.rfind('.') - first + 1));
      ++size.second;
    }
    return size;
  };
  // A character is twice as high as wide.
  const auto [width, height] = sizeOfCircle(R"({"said": ["r"], "re": [0.5], "im": [0]})");
  EXPECT_GT(height, 14);
  EXPECT_NEAR(width, 2 * height, 5);
  const auto [smallWidth, smallHeight] = sizeOfCircle(R"({"said": ["r"], "re": [3], "im": [0]})");
  EXPECT_LT(smallHeight, height - 5);
  EXPECT_NEAR(smallWidth, 2 * smallHeight, 4);

  const auto panel =
      linesOf(ChartDocument()
                  .drawing(R"({"h": ["0", "1", "0", "1", "0", "1", "0", "1"], "y": [1, 2, 3, 4, 5, 6, 7, 8],
                                              "r": ["first", "first", "first", "first", "second", "second", "second", "second"],
                                              "s": ["left", "left", "right", "right", "left", "left", "right", "right"]})",
                           {"PANEL: rows(r), columns(s)", "ELEMENT: line(position(h*y))"})
                  .paint());
  EXPECT_THAT(panel, testing::Contains("first"));
  EXPECT_THAT(panel, testing::Contains("second"));
  EXPECT_THAT(panel[3], testing::MatchesRegex("left {30,}right"));
  for (const std::string& line : panel) EXPECT_LE(line.size(), 80U);
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
