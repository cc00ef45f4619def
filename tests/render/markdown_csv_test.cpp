#include "workbench/render/markdown_csv.h"

#include <gtest/gtest.h>

#include "tests/render/render_fixture.h"
#include "workbench/render/table_formats.h"

namespace workbench {
namespace {

constexpr const char* kTable = R"({ "type": "table", "title": "Fit *x*", "titleFootnotes": [0], "footnotes": ["a|b"],
  "rowDimension": { "label": "Variable", "shown": true },
  "columns": [ { "label": "R, Square" }, { "label": "Test", "children": ["df", "\"Sig.\""] } ],
  "rows": ["real_gdp|1", "two\nlines"], "cells": [[7221.171900985223, 8, null], [1e-9, -1.5, 2]] })";

TEST(Markdown, WritesAPipeTableWithoutActiveMarkup) {
  EXPECT_EQ(paintMarkdown(tableFromJson(kTable)), R"(**Fit \*x\*** (a)

| Variable | R, Square | Test: df | Test: "Sig." |
| :--- | ---: | ---: | ---: |
| real\_gdp\|1 | 7221.172 | 8.000 | . |
| two^Jlines | 1.0e-09 | -1.500 | 2.000 |

(a) a\|b
)");
}

TEST(Csv, WritesFullPrecisionAndQuotesWhatNeedsIt) {
  const std::string expected =
      "Variable,\"R, Square\",Test: df,\"Test: \"\"Sig.\"\"\"\r\n"
      "real_gdp|1,7221.171900985223,8,\r\n"
      "\"two\nlines\",1e-09,-1.5,2\r\n";
  EXPECT_EQ(paintCsv(tableFromJson(kTable)), expected);
  EXPECT_EQ(paintCsv(tableFromJson(kTable, commaLanguage())), expected) << "the same in every language";
}

TEST(Csv, RunsNoNameAsAFormula) {
  const std::string table = paintCsv(tableFromJson(R"json({ "type": "table", "rowDimension": { "label": "=1+1", "shown": true },
    "columns": [ { "label": "@SUM(a)" }, { "label": "-1" } ], "rows": ["+cmd"], "cells": [[-1, 2]]
})json"));
  EXPECT_EQ(table, "'=1+1,'@SUM(a),-1\r\n'+cmd,-1,2\r\n");
}

TEST(TableFormats, WriteEveryTableInTheFormatOfAFileName) {
  const auto document = parseJson(R"({"items": [
    {"type": "table", "title": "A", "columns": [{"label": "N"}], "rows": ["x"], "cells": [[1.5]]},
    {"type": "chart", "name": "c"},
    {"type": "table", "title": "B", "columns": [{"label": "N"}], "rows": ["y"], "cells": [[2]]}]})");
  EXPECT_EQ(tableFormatOf("tables.docx"), nullptr);
  ASSERT_NE(tableFormatOf("tables.CSV"), nullptr);
  EXPECT_EQ(writeTables(document, *tableFormatOf("tables.CSV")), ",N\r\nx,1.5\r\n\n,N\r\ny,2\r\n");
  EXPECT_EQ(writeTables(document, *tableFormatOf("a.md")),
            "**A**\n\n|  | N |\n| :--- | ---: |\n| x | 1.500 |\n\n"
            "**B**\n\n|  | N |\n| :--- | ---: |\n| y | 2.000 |\n");
}

}  // namespace
}  // namespace workbench
