// Names of files, and pictures of every kind of mark, read back as SVG.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <regex>

#include "tests/charts/chart_fixture.h"
#include "tests/render/comma_language.h"
#include "workbench/export/item_names.h"
#include "workbench/plots/gnuplot.h"
#include "workbench/plots/picture_look.h"
#include "workbench/plots/picture_script.h"

namespace workbench {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(ItemNames, ArePlainAndDiffer) {
  const std::vector<std::pair<std::string, std::string>> plain = {{"parameters:realgdp", "parameters-realgdp"},
                                                                  {"forecast:../../etc/x", "forecast-..-..-etc-x"},
                                                                  {"roots:größe (t)\n", "roots-größe--t--J"},
                                                                  {"a:\xff", "a--"}};
  for (const auto& [id, name] : plain) EXPECT_EQ(plainName(id), name);
  EXPECT_LE(plainName("a:" + std::string(300, 'n')).size(), 180U);
  ItemNames names;
  EXPECT_EQ(names.take("fit:x", "VARMODEL", 1), "fit-x");
  EXPECT_EQ(names.take("fit:X", "VARDYNAMICS", 2), "fit-X-vardynamics");
  EXPECT_EQ(names.take("fit:x", "VARDYNAMICS", 3), "fit-x-vardynamics-3");
  EXPECT_EQ(names.take("fit:x", "VARDYNAMICS", 3), "fit-x-vardynamics-3-2");
}

std::string drawn(const Chart& chart, std::size_t format = 0, const Language& language = {}) {
  return runGnuplot(pictureScript(chart, kPictureFormats.at(format), language)).value_or("");
}

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t times = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++times;
  return times;
}

constexpr const char* kBlue = "<polygon fill = 'rgb( 36, 104, 180)'";
constexpr const char* kRed = "<polygon fill = 'rgb(200,  64,  47)'";
constexpr const char* kPaleBlue = "<polygon fill = 'rgb( 36, 104, 180)' fill-opacity='0.20'";

// What is drawn of which statements, as shapes of SVG and as rows of the script.
TEST(Pictures, HoldTheMarksOfEveryKind) {
  struct Case {
    std::vector<std::string> columns;
    std::vector<std::string> statements;
    std::string data;
    std::map<std::string, std::size_t> shapes;
    std::vector<std::string> script;
  };
  const std::vector<Case> cases = {
      {{"d", "y"},  // two stretches of a line, and a dot for the value between two gaps
       {"ELEMENT: line(position(d*y), color(color.red), size(size.\"2\"))"},
       R"({"d": ["a","b","c","d","e"], "y": [1, 2, null, 4, null]})",
       {},
       {"0 1\n1 2\n\n3 4\n\nEOD", "lines lc rgb '#c8402f' lw 3 dt 1", "EOD\n3 4\nEOD", "points pt 7"}},
      {{"d", "l", "h"},  // a band in two stretches
       {"ELEMENT: band(position(d*l*h), color.interior(color.blue), label(\"95%\"))"},
       R"({"d": ["a","b","c","d","e"], "l": [1, 2, null, 1, 2], "h": [3, 4, 5, 4, 5]})",
       {{kPaleBlue, 2}},
       {"0 1 3\n1 2 4\nEOD"}},
      {{"d", "y"},  // bars to both sides of zero
       {"ELEMENT: interval(position(d*y), color.interior(color.blue))"},
       R"({"d": ["a","b","c"], "y": [1, -2, null]})",
       {{kBlue, 2}},
       {"1 -2 0.65 1.35 0 -2\nEOD"}},
      {{"d", "y", "s"},  // bars on each other, and their legend
       {"ELEMENT: interval(position(d*y), color(s), stack())"},
       R"({"d": ["a","b","a","b"], "y": [1, 2, 3, -4], "s": ["u","u","v","v"]})",
       {{kRed, 3}, {kBlue, 3}, {"<text>u</text>", 1}},
       {"0 4 -0.35 0.35 1 4\n1 0 0.65 1.35 -4 0\nEOD"}},
      {{"d", "y", "s"},  // areas on each other, parted by the ground's colour
       {"ELEMENT: area(position(d*y), color(s), stack())", "SCALE: linear(dim(2), min(0), max(10))"},
       R"({"d": ["a","b","a","b"], "y": [1, 2, 3, 4], "s": ["u","u","v","v"]})",
       {{kRed, 2}, {kBlue, 2}},
       {"0 1 4\n1 2 6\nEOD", "lines lc rgb '#ffffff'", "set yrange [0:10]"}},
  };
  for (const Case& one : cases) {
    std::vector<std::string> statements = one.statements;
    if (one.columns.back() == "s")
      statements.insert(statements.begin(), "DATA: s = col(source(x), name(\"s\"), unit.category())");
    std::vector<std::string> columns = one.columns;
    std::erase(columns, "s");
    const Chart chart = chartDeclaring(columns, statements, one.data);
    const std::string script = pictureScript(chart, kPictureFormats[0]);
    for (const std::string& rows : one.script) EXPECT_THAT(script, HasSubstr(rows));
    const std::string svg = drawn(chart);
    for (const auto& [shape, times] : one.shapes) EXPECT_EQ(count(svg, shape), times) << shape << one.data;
  }
}

const std::vector<std::string> kFan = {"ELEMENT: band(position(d*l*h), color.interior(color.blue), label(\"95%\"))",
                                       "ELEMENT: line(position(d*y), color(color.red), label(\"Mean\"))"};

TEST(Pictures, BeginAsTheirFormatsDoAndSpeakTheLanguage) {
  const Chart chart = chartDeclaring({"d", "l", "h", "y"}, kFan,
                                     R"({"d": ["a","b","c"], "l": [0, 0.5, 1], "h": [1, 1.5, 2], "y": [1, 1, 1]})");
  for (std::size_t format = 0; format < kPictureFormats.size(); ++format)
    EXPECT_THAT(drawn(chart, format), testing::StartsWith(kPictureFormats.at(format).begin));
  EXPECT_THAT(drawn(chart, 0, commaLanguage()), HasSubstr("<text>0,5</text>"));
  EXPECT_THAT(drawn(chart), testing::AllOf(HasSubstr("<text>95%</text>"), HasSubstr("<text>Mean</text>")));
}

TEST(Pictures, OfAPanelHaveItsHeadingsAndAChartForEachPair) {
  std::vector<std::string> statements = kFan;
  statements.insert(statements.begin(),
                    {"DATA: r = col(source(x), name(\"r\"), unit.category())",
                     "DATA: c = col(source(x), name(\"c\"), unit.category())", "PANEL: rows(r), columns(c)"});
  const Chart chart =
      chartDeclaring({"d", "l", "h", "y"}, statements,
                     R"({"d": ["a","b","a","b"], "l": [0, 0, 1, 1], "h": [1, 1, 2, 2], "y": [1, 1, 1, 1],
                                         "r": ["Response of up, summed","Response of up, summed","Response of up, summed","Response of up, summed"], "c": ["left","left","it's {right}","it's {right}"]})");
  ASSERT_EQ(chart.cells.size(), 2U);
  const std::string svg = drawn(chart);
  for (const char* heading :
       {"<text>Response of up,</text>", "<text>summed</text>", "<text>left</text>", "{right}", "<text>Mean</text>"})
    EXPECT_EQ(count(svg, heading), 1U) << heading;
  EXPECT_EQ(count(svg, kPaleBlue), 3U) << "two bands and the legend";
}

TEST(Pictures, ShowTheSamePartAsTheReportAndNothingOfWhatHasNoValues) {
  std::string data = R"({"d": [)";
  std::string values;
  for (int i = 0; i < 100; ++i) {
    data += (i > 0 ? ",\"" : "\"") + std::to_string(i) + "\"";
    values += (i > 0 ? "," : "") + std::to_string(i);
  }
  const std::vector<std::string> line = {"ELEMENT: line(position(d*y), color(color.red))",
                                         "GUIDE: window(dim(1), last(10))"};
  const std::string script =
      pictureScript(chartDeclaring({"d", "y"}, line, data + "], \"y\": [" + values + "]}"), kPictureFormats[0]);
  EXPECT_THAT(script,
              testing::AllOf(HasSubstr("set xrange [90:99]"), HasSubstr("EOD\n90 90\n"), Not(HasSubstr("89 89"))));
  const std::vector<std::string> area = {"ELEMENT: area(position(d*y), color.interior(color.blue))", line[1]};
  const Chart areas = chartDeclaring({"d", "y"}, area, data + "], \"y\": [" + values + "]}");
  EXPECT_THAT(pictureScript(areas, kPictureFormats[0]),
              testing::AllOf(HasSubstr("EOD\n90 0 90\n"), Not(HasSubstr("89 0 89"))));
  EXPECT_FALSE(hasPicture(chartDeclaring({"d", "y"}, line, R"({"d": ["a"], "y": [null]})")));
  EXPECT_FALSE(hasPicture(chartDeclaring({"d", "y"}, line, R"({"d": ["a"]})")));
}

TEST(Pictures, HaveTheColoursOfThePage) {
  std::ifstream stream(VARMODEL_SOURCE_DIR "/workbench/report/page/page.css");
  const std::string css(std::istreambuf_iterator<char>(stream), {});
  const std::regex color("--chart-(\\w+): light-dark\\((#[0-9a-f]{6})");
  std::size_t compared = 0;
  for (std::sregex_iterator it(css.begin(), css.end(), color), end; it != end; ++it, ++compared)
    EXPECT_EQ(pictureColor((*it)[1].str()), (*it)[2].str()) << (*it)[1];
  EXPECT_EQ(compared, 12U);
}

}  // namespace
}  // namespace workbench
