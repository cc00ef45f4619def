#include "workbench/report/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <regex>

#include "procedures/common/chart_specification.h"
#include "tests/render/render_fixture.h"
#include "workbench/render/display_text.h"
#include "workbench/render/html_escape.h"

namespace workbench {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

using Pool = rapidjson::Document::AllocatorType;

void fillEmptyTexts(rapidjson::Value& value, const std::string& name, Pool& pool) {
  if (value.IsArray())
    for (auto& element : value.GetArray()) fillEmptyTexts(element, name, pool);
  if (value.IsObject())
    for (auto& member : value.GetObject()) fillEmptyTexts(member.value, name, pool);
  if (value == "") value = rapidjson::Value(name, pool);
}

// A document that has `name` everywhere a text can stand: one table, one chart of two series.
rapidjson::Document documentNaming(const std::string& name) {
  rapidjson::Document document = parseJson(R"({"procedure": "", "subtitle": "", "items": [
    {"type": "table", "name": "", "title": "", "titleShown": true, "titleFootnotes": [0], "footnotes": [""],
     "rowDimension": {"label": "", "shown": true}, "columnDimension": {"label": "", "shown": true},
     "columns": [{"label": ""}, {"label": "", "children": ["", "b"]}], "rows": [""], "cells": [[1, 2, 3.25]]},
    {"type": "chart", "name": "", "columns": {"xdata": ["", "2"], "ydata": [1, 2], "seriesname": ["", "Zulu"]},
     "vizl": []}]})");
  procedures::ChartDescription chart;
  chart.xAxisLabel = chart.yAxisLabel = name;
  chart.kind = procedures::kSeriesLines;
  chart.seriesColors = {{name, "color.green"}};
  auto& pool = document.GetAllocator();
  auto& vizl = document["items"][1]["vizl"];
  for (const auto& line : procedures::chartSpecification(chart, name, name))
    vizl.PushBack(rapidjson::Value(line, pool), pool);
  vizl.PushBack(rapidjson::Value("UNKNOWN: " + name, pool), pool);
  fillEmptyTexts(document, name, pool);
  return document;
}

std::string pageNaming(const std::string& name) {
  const rapidjson::Document document = documentNaming(name);
  ReportInput input;
  ReportOutput output{
      .document = &document, .commandText = name, .view = {}, .facts = {{name, name}}, .savedFiles = {name}};
  output.view.notes[0] = {name};
  input.outputs = {output};
  input.facts = {{name, name}};
  input.messages = {{ReportMessage::Kind::error, name}};
  return renderReport(input);
}

std::vector<std::string> scriptsOf(const std::string& page) {
  std::vector<std::string> scripts;
  for (std::size_t at = page.find("<script"); at != std::string::npos; at = page.find("<script", at)) {
    const std::size_t begin = page.find('>', at) + 1;
    const std::size_t end = page.find("</script>", begin);
    scripts.push_back(page.substr(begin, end - begin));
    at = end;
  }
  return scripts;
}

// The page's mark-up with scripts and styles taken out.
std::string markupOf(std::string page) {
  for (const std::string& script : scriptsOf(page)) page.erase(page.find(script), script.size());
  const std::size_t style = page.find("<style>");
  return page.erase(style, page.find("</style>") - style);
}

std::vector<std::string> tagsOf(const std::string& markup) {
  static const std::regex kTag("<(/?[a-zA-Z!][a-zA-Z0-9-]*)");
  std::vector<std::string> tags;
  for (std::sregex_iterator it(markup.begin(), markup.end(), kTag), end; it != end; ++it) tags.push_back((*it)[1]);
  return tags;
}

// The browser's tests see how the names are shown; here no mark-up may come of them, and the script gets them whole.
TEST(Report, HostileNamesChangeNothingButTexts) {
  const std::vector<std::string> tags = tagsOf(markupOf(pageNaming("plain")));
  ASSERT_GT(tags.size(), 80U);
  for (const std::string& name : hostileNames()) {
    SCOPED_TRACE(name);
    const std::string page = pageNaming(name);
    const std::string markup = markupOf(page);
    EXPECT_EQ(tagsOf(markup), tags);
    EXPECT_THAT(markup, Not(HasSubstr("{{")));
    EXPECT_THAT(markup, HasSubstr("<th scope=\"row\"><bdi>" + htmlText(name) + "</bdi></th>"));
    EXPECT_THAT(markup, HasSubstr("<li><code>UNKNOWN: " + htmlText(name) + "</code></li>"));

    const std::vector<std::string> scripts = scriptsOf(page);
    ASSERT_EQ(scripts.size(), 3U);
    const rapidjson::Document data = parseJson(scripts[0]);
    const auto& chart = data["charts"][0];
    const std::string shown = visibleText(name);
    EXPECT_EQ(chart["series"][0]["color"], "green");
    for (const rapidjson::Value* text : {&chart["series"][0]["name"], &chart["title"], &chart["xLabel"],
                                         &chart["yLabel"], &data["columns"][chart["categories"].GetUint()][0]}) {
      EXPECT_EQ(text->GetString(), shown);
    }
  }
}

TEST(Report, PolicyAllowsOnlyCodeOfKnownDigest) {
  const std::string page = pageNaming("a");
  std::smatch policy;
  ASSERT_TRUE(std::regex_search(page.begin(), page.begin() + 4000, policy,
                                std::regex("Content-Security-Policy\" content=\"([^\"]*)\"")));
  // That the digests are those of the page's code shows in the browser, which runs nothing else.
  EXPECT_THAT(policy[1], AllOf(HasSubstr("default-src 'none'"), Not(HasSubstr("unsafe")), Not(HasSubstr("http"))));
  EXPECT_FALSE(std::regex_search(markupOf(page), std::regex("(src|href)=\"(?!#|data:,\")")));
}

TEST(Report, LeavesEmptyPartsOut) {
  const std::string page = markupOf(renderReport({}));
  EXPECT_THAT(page, HasSubstr("<h1>"));
  for (const char* part : {"id=\"command\"", "id=\"facts\"", "id=\"messages\"", "id=\"item-1\"", "<noscript>"}) {
    EXPECT_THAT(page, Not(HasSubstr(part)));
  }
}

TEST(Report, SaysWhatACrippledChartLacks) {
  const rapidjson::Document document = parseJson(R"({"items": [{"type": "chart", "name": "Bare"},
    {"type": "chart", "name": "Odd", "vizl": [1], "columns": []}, {"type": "song"}, 3]})");
  ReportInput input;
  input.outputs.emplace_back().document = &document;
  const std::string page = markupOf(renderReport(input));
  EXPECT_THAT(page, HasSubstr("<h3><bdi>Bare</bdi></h3>\n<p class=\"remark problem\">"));
  EXPECT_THAT(page, HasSubstr("(not a text)"));
  EXPECT_THAT(page, Not(HasSubstr("item-3\"")));
}

TEST(Report, SetsOffWhatLiesBelowTheLevelOfTheTests) {
  const rapidjson::Document document = parseJson(R"({"items": [
    {"type": "table", "title": "Summary", "footnotes": ["Stable."]},
    {"type": "table", "title": "Tests", "rows": ["a", "b", "c"],
     "columns": [{"label": "F"}, {"label": "b", "children": ["df", "Sig."]}],
     "cells": [[0.01, 2, 0.0499], [0.01, 2, 0.05], [0.01, 2, null]]}]})");
  ReportInput input;
  ReportOutput& output = input.outputs.emplace_back();
  output.document = &document;
  output.view.headline = 0;
  EXPECT_THAT(markupOf(renderReport(input)), Not(HasSubstr("significant")));
  output.view.testLevel = 0.05;
  const std::string page = markupOf(renderReport(input));
  EXPECT_THAT(page, HasSubstr("<td class=\"significant\" data-value=\"0.0499\">"));
  EXPECT_EQ(page.find("significant"), page.rfind("significant"));
  EXPECT_THAT(page, HasSubstr("a Sig. below the level is bold"));
}

}  // namespace
}  // namespace workbench
