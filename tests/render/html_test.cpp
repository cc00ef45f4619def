#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "tests/render/render_fixture.h"
#include "workbench/render/display_text.h"
#include "workbench/render/html_escape.h"
#include "workbench/render/html_table.h"

namespace workbench {
namespace {

using testing::HasSubstr;
using testing::Not;

// What a browser reads from escaped text.
std::string unescaped(std::string text) {
  const std::array<std::pair<const char*, const char*>, 6> entities{
      {{"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&#39;", "'"}, {"&#123;", "{"}, {"&amp;", "&"}}};
  for (const auto& [entity, character] : entities)
    for (std::size_t at = 0; (at = text.find(entity, at)) != std::string::npos; ++at)
      text.replace(at, std::string(entity).size(), character);
  return text;
}

TEST(HtmlEscape, TextIsInertAndReadsBackAsItIsShown) {
  EXPECT_EQ(htmlText("a<b> & \"c\" 'd' {{e}}"), "a&lt;b&gt; &amp; &quot;c&quot; &#39;d&#39; &#123;&#123;e}}");
  EXPECT_EQ(htmlText(std::string("x\0y\x1b", 4)), "x^@y^[");
  for (const std::string& text : hostileTexts()) {
    const std::string escaped = htmlText(text);
    EXPECT_EQ(escaped.find_first_of(std::string("<>\"'{\0\x1b\r\n", 9)), std::string::npos) << escaped;
    EXPECT_EQ(unescaped(escaped), visibleText(text));
  }
}

TEST(HtmlEscape, ScriptJsonParsesToTheSameValue) {
  rapidjson::Document document(rapidjson::kObjectType);
  auto& pool = document.GetAllocator();
  rapidjson::Value texts(rapidjson::kArrayType);
  for (const std::string& text : hostileTexts())
    if (text[0] != '\xff') texts.PushBack(rapidjson::Value(text, pool), pool);
  document.AddMember("texts", texts, pool);
  document.AddMember(rapidjson::Value("<!--{{{{", pool), rapidjson::Value(0.1), pool);
  document.AddMember("nested", rapidjson::Value(parseJson(R"([{"a":{"b":{}}},[null,true,-1.5e-300]])"), pool), pool);
  const std::string json = scriptJson(document);
  for (const char* active : {"<", ">", "&", "{{", "\xe2\x80\xa8"}) EXPECT_THAT(json, Not(HasSubstr(active)));
  EXPECT_EQ(json.find('\0'), std::string::npos);
  EXPECT_TRUE(parseJson(json) == document) << json;
}

TEST(HtmlEscape, ScriptJsonMendsWhatIsNoUtf8AndRefusesWhatIsNoNumber) {
  rapidjson::Document document;
  document.SetString("a\xff\xe2\x82", document.GetAllocator());
  EXPECT_EQ(scriptJson(document), "\"a���\"");
  document.SetDouble(std::numeric_limits<double>::quiet_NaN());
  EXPECT_THROW(scriptJson(document), std::runtime_error);
}

TEST(HtmlTable, WritesHeadersWithTheirScopesAndFullPrecisionValues) {
  EXPECT_EQ(
      htmlTable(tableFromJson(R"({ "type": "table", "title": "Tests", "titleFootnotes": [0], "footnotes": ["lag:  2 ."],
    "rowDimension": { "label": "Variable", "shown": true }, "columnDimension": { "label": "Statistics", "shown": true },
    "columns": [ { "label": "Ljung-Box", "children": ["df", "Sig."] }, { "label": "ACF" } ],
    "rows": ["realgdp"], "cells": [[8, null, -0.03412345678901234]] })")),
      R"(<table class="pivot">
<caption><bdi>Tests</bdi><sup>a</sup></caption>
<colgroup></colgroup>
<colgroup span="2"></colgroup>
<colgroup span="1"></colgroup>
<thead>
<tr><th scope="col" class="corner" rowspan="3"><bdi>Variable</bdi></th><th scope="col" colspan="3" class="over"><bdi>Statistics</bdi></th></tr>
<tr><th scope="colgroup" colspan="2" class="over"><bdi>Ljung-Box</bdi></th><th scope="col" rowspan="2"><bdi>ACF</bdi></th></tr>
<tr><th scope="col"><bdi>df</bdi></th><th scope="col"><bdi>Sig.</bdi></th></tr>
</thead>
<tbody>
<tr><th scope="row"><bdi>realgdp</bdi></th><td data-value="8">8.000</td><td data-value="">.</td><td data-value="-0.03412345678901234">-0.034</td></tr>
</tbody>
<tfoot>
<tr><td colspan="4"><div><sup>a</sup> <bdi>lag:  2 .</bdi></div></td></tr>
</tfoot>
</table>
)");
}

TEST(HtmlTable, PlainAndEmptyTables) {
  const std::string plain = htmlTable(tableFromJson(R"({ "type": "table", "title": "\"Fit\"", "titleShown": false,
    "columns": [ { "label": "N" } ], "rows": ["a"], "cells": [[3]], "cellFormat": { "decimals": 0 } })"));
  EXPECT_THAT(plain, HasSubstr("<table class=\"pivot\" aria-label=\"&quot;Fit&quot;\">\n<colgroup>"));
  EXPECT_THAT(plain, HasSubstr("<tr><td class=\"corner\"></td><th scope=\"col\"><bdi>N</bdi></th></tr>"));
  EXPECT_THAT(plain, HasSubstr("<td data-value=\"3\">3</td>"));
  EXPECT_THAT(plain, Not(HasSubstr("tfoot")));
  EXPECT_THAT(htmlTable(tableFromJson(R"({ "type": "table", "title": "Empty" })")), HasSubstr("<tbody>\n</tbody>"));
}

TEST(HtmlTable, HostileNamesAddNoMarkup) {
  PivotTable table =
      tableFromJson(R"({ "type": "table", "title": "t", "titleFootnotes": [0], "footnotes": ["f"], "rows": ["r"],
    "rowDimension": { "label": "v", "shown": true }, "columns": [ { "label": "g", "children": ["c"] } ], "cells": [[1]] })");
  const auto countTags = [](const std::string& html) { return std::count(html.begin(), html.end(), '<'); };
  const auto quotes = [](const std::string& html) { return std::count(html.begin(), html.end(), '"'); };
  const std::string harmless = htmlTable(table);
  for (const std::string& hostile : hostileTexts()) {
    for (std::string* place : {&table.title, &table.footnotes[0].text, &table.rows[0], &table.columns[0].label,
                               &table.columns[0].children[0], &table.rowDimension.label})
      *place = hostile;
    const std::string html = htmlTable(table);
    EXPECT_EQ(countTags(html), countTags(harmless)) << html;
    EXPECT_EQ(quotes(html), quotes(harmless)) << html;
    EXPECT_THAT(html, Not(HasSubstr("{{")));
    EXPECT_EQ(html.find('\0'), std::string::npos);
  }
}

}  // namespace
}  // namespace workbench
