#include "workbench/report/report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <regex>
#include <stdexcept>

#include "output/chart_specification.h"
#include "tests/report/hostile_names.h"
#include "workbench/render/display_text.h"
#include "workbench/render/html_escape.h"

namespace workbench {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

rapidjson::Value text(const std::string& value, rapidjson::Document& document) {
  return rapidjson::Value(value, document.GetAllocator());
}

// A document that has `name` everywhere a text can stand: one table, one chart of two series.
rapidjson::Document documentNaming(const std::string& name) {
  rapidjson::Document document;
  document.Parse(R"({"procedure": "", "subtitle": "", "items": [
    {"type": "table", "name": "", "title": "", "titleShown": true, "titleFootnotes": [0], "footnotes": [""],
     "rowDimension": {"label": "", "shown": true}, "columnDimension": {"label": "", "shown": true},
     "columns": [{"label": ""}, {"label": "", "children": ["", "b"]}], "rows": [""], "cells": [[1, 2, 3.25]]},
    {"type": "chart", "name": "", "columns": {"xdata": ["", "2"], "ydata": [1, 2], "seriesname": ["", "Zulu"]}}]})");
  auto& items = document["items"];
  for (rapidjson::Value* place :
       {&document["procedure"], &document["subtitle"], &items[0]["name"], &items[0]["title"], &items[0]["footnotes"][0],
        &items[0]["rowDimension"]["label"], &items[0]["columnDimension"]["label"], &items[0]["columns"][0]["label"],
        &items[0]["columns"][1]["label"], &items[0]["columns"][1]["children"][0], &items[0]["rows"][0],
        &items[1]["name"], &items[1]["columns"]["xdata"][0], &items[1]["columns"]["seriesname"][0]}) {
    *place = text(name, document);
  }
  varmodel::ChartDescription chart;
  chart.xAxisLabel = chart.yAxisLabel = name;
  chart.kind = varmodel::kSeriesLines;
  chart.seriesColors = {{name, "color.green"}};
  rapidjson::Value lines(rapidjson::kArrayType);
  for (const auto& line : varmodel::chartSpecification(chart, name, name)) {
    lines.PushBack(text(line, document), document.GetAllocator());
  }
  lines.PushBack(text("UNKNOWN: " + name, document), document.GetAllocator());
  items[1].AddMember("vizl", lines, document.GetAllocator());
  return document;
}

std::string pageNaming(const std::string& name) {
  const rapidjson::Document document = documentNaming(name);
  ReportInput input;
  input.document = &document;
  input.commandText = name;
  input.facts = {{name, name}};
  input.messages = {{ReportMessage::Kind::error, name}};
  input.savedFiles = {name};
  return renderReport(input);
}

std::vector<std::string> scriptsOf(const std::string& page) {
  std::vector<std::string> scripts;
  for (std::size_t at = page.find("<script"); at != std::string::npos; at = page.find("<script", at)) {
    const std::size_t begin = page.find('>', at) + 1;
    const std::size_t end = page.find("</script>", begin);
    if (end == std::string::npos) throw std::runtime_error("A script has no end.");
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

TEST(Report, HostileNamesChangeNothingButTexts) {
  const std::string plain = markupOf(pageNaming("plain"));
  const std::vector<std::string> tags = tagsOf(plain);
  ASSERT_GT(tags.size(), 80U);
  for (const std::string& name : hostileNames()) {
    SCOPED_TRACE(name);
    const std::string page = pageNaming(name);
    const std::string markup = markupOf(page);
    EXPECT_EQ(tagsOf(markup), tags);
    EXPECT_THAT(markup, Not(HasSubstr("{{")));
    EXPECT_THAT(markup, HasSubstr("<th scope=\"row\"><bdi>" + htmlText(name) + "</bdi></th>"));
    EXPECT_THAT(markup, HasSubstr("<h3><bdi>" + htmlText(name) + "</bdi></h3>"));
    EXPECT_THAT(markup, HasSubstr("<li><code>UNKNOWN: " + htmlText(name) + "</code></li>"));

    const std::vector<std::string> scripts = scriptsOf(page);
    ASSERT_EQ(scripts.size(), 5U);
    rapidjson::Document data;
    ASSERT_FALSE(data.Parse(scripts[0]).HasParseError());
    const auto& chart = data["charts"][0];
    const std::string shown = visibleText(name);
    EXPECT_EQ(chart["series"][0]["name"], rapidjson::Value(shown, data.GetAllocator()));
    EXPECT_EQ(chart["series"][0]["color"], rapidjson::Value("var(--chart-green)"));
    EXPECT_EQ(chart["title"], rapidjson::Value(shown, data.GetAllocator()));
    EXPECT_EQ(chart["xLabel"], rapidjson::Value(shown, data.GetAllocator()));
    EXPECT_EQ(data["columns"][chart["categories"].GetUint()][0], rapidjson::Value(shown, data.GetAllocator()));
  }
}

TEST(Report, PolicyAllowsOnlyCodeOfKnownDigest) {
  const std::string page = pageNaming("a");
  std::smatch policy;
  ASSERT_TRUE(std::regex_search(page.begin(), page.begin() + 4000, policy,
                                std::regex("Content-Security-Policy\" content=\"([^\"]*)\"")));
  const std::string rules = policy[1];
  EXPECT_THAT(rules, HasSubstr("default-src 'none'"));
  EXPECT_THAT(rules, Not(HasSubstr("unsafe")));
  EXPECT_THAT(rules, Not(HasSubstr("http")));
  // That the digests are those of the page's code shows in the browser, which runs nothing else.
  static const std::regex kDigest("'sha256-[A-Za-z0-9+/]{43}='");
  const auto digests = std::distance(std::sregex_iterator(rules.begin(), rules.end(), kDigest), {});
  EXPECT_EQ(static_cast<std::size_t>(digests), 4U + 1U);  // scripts and the style sheet
  EXPECT_EQ(std::regex_search(markupOf(page), std::regex("(src|href)=\"(?!#|data:,\")")), false);
}

TEST(Report, LeavesEmptyPartsOut) {
  const std::string page = markupOf(renderReport({}));
  for (const char* part : {"id=\"command\"", "id=\"facts\"", "id=\"messages\"", "id=\"item-1\"", "<noscript>"}) {
    EXPECT_THAT(page, Not(HasSubstr(part)));
  }
  EXPECT_THAT(page, HasSubstr("<h1>"));
}

TEST(Report, KeepsTheLinesOfCommandAndMessages) {
  ReportInput input;
  input.commandText = "VARMODEL\r\n\t/MODEL <x>";
  input.messages = {{ReportMessage::Kind::hint, "one\n  two"}};
  const std::string page = renderReport(input);
  EXPECT_THAT(page, HasSubstr("VARMODEL\n    /MODEL &lt;x&gt;</pre>"));
  EXPECT_THAT(
      page,
      HasSubstr(
          "<li class=\"hint\"><strong>Hint</strong><div><p>one</p><pre class=\"verbatim\">  two</pre></div></li>"));
}

TEST(Report, SaysWhatACrippledChartLacks) {
  rapidjson::Document document;
  document.Parse(R"({"items": [{"type": "chart", "name": "Bare"}, {"type": "chart", "name": "Odd", "vizl": [1],
    "columns": []}, {"type": "song"}, 3]})");
  ReportInput input;
  input.document = &document;
  const std::string page = markupOf(renderReport(input));
  EXPECT_THAT(page, HasSubstr("<h3><bdi>Bare</bdi></h3>\n<p class=\"remark problem\">"));
  EXPECT_THAT(page, HasSubstr("(not a text)"));
  EXPECT_THAT(page, Not(HasSubstr("item-3\"")));
}

}  // namespace
}  // namespace workbench
