#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/render/render_fixture.h"
#include "workbench/render/html_escape.h"
#include "workbench/render/html_table.h"

namespace workbench {
namespace {

using testing::HasSubstr;
using testing::Not;

TEST(HtmlEscape, TextIsInert) {
  EXPECT_EQ(htmlText("a<b> & \"c\" 'd' {{e}}"), "a&lt;b&gt; &amp; &quot;c&quot; &#39;d&#39; &#123;&#123;e}}");
  EXPECT_EQ(htmlText(std::string("x\0y\x1b\r\n", 6)), "x^@y^[^M^J");
}

TEST(HtmlEscape, ScriptJsonParsesToTheSameValue) {
  rapidjson::Document document = parseJson(R"({"<!--{{{{": [{"a":{"b":{}}},[null,true,0.1,-1.5e-300]], "names": []})");
  auto& pool = document.GetAllocator();
  for (const std::string& name : hostileNames())
    if (name.find('\xff') == std::string::npos) document["names"].PushBack(rapidjson::Value(name, pool), pool);
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

TEST(HtmlTable, ATableWithoutTitleGroupsAndFootnotes) {
  const std::string plain = htmlTable(tableFromJson(R"({ "type": "table", "title": "\"Fit\"", "titleShown": false,
    "columns": [ { "label": "N" } ], "rows": ["a"], "cells": [[3]], "cellFormat": { "decimals": 0 },
    "columnWidth": { "min": 100, "max": 300 } })"));
  EXPECT_THAT(plain,
              HasSubstr("<table class=\"pivot\" data-widest=\"300\" aria-label=\"&quot;Fit&quot;\">\n<colgroup>"));
  EXPECT_THAT(plain, HasSubstr("<colgroup span=\"1\" width=\"100\">"));
  EXPECT_THAT(plain, HasSubstr("<tr><td class=\"corner\"></td><th scope=\"col\"><bdi>N</bdi></th></tr>"));
  EXPECT_THAT(plain, HasSubstr("<td data-value=\"3\">3</td>"));
  EXPECT_THAT(plain, Not(HasSubstr("tfoot")));
}

}  // namespace
}  // namespace workbench
