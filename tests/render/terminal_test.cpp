#include "workbench/render/terminal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/render/render_fixture.h"

namespace workbench {
namespace {

using testing::HasSubstr;

constexpr const char* kDescriptives = R"({ "type": "table", "title": "Descriptive Statistics",
  "rowDimension": { "label": "Variable", "shown": true }, "columnDimension": { "label": "Statistics", "shown": false },
  "columns": [ { "label": "N" }, { "label": "Mean" }, { "label": "Std. Deviation" } ],
  "rows": ["realgdp", "infl"], "cells": [[203, 7221.1719, 3214.956], [null, -3.96151, 0.00001]],
  "cellFormat": { "type": 5, "width": 10, "decimals": 3 },
  "columnFormats": { "0": { "type": 5, "width": 10, "decimals": 0 } } })";

constexpr const char* kTests = R"({ "type": "table", "title": "Test for Residuals",
  "titleFootnotes": [0], "footnotes": ["Both tests take the residuals of the selected lag order."],
  "rowDimension": { "label": "Variable", "shown": true },
  "columns": [ { "label": "Test for Autocorrelation of Residuals", "children": ["Ljung-Box Statistic", "df", "輸出"] },
               { "label": "Residual ACF" } ],
  "rows": ["日本gdp", "realcons"], "cells": [[12.345, 8, null], [112.345, 8, 0.137, -0.034]] })";

std::string paint(const std::string& json, TerminalStyle style) {
  return '\n' + paintTerminal(tableFromJson(json), style);
}

TEST(Terminal, PaintsAPlainTableWithAMissingCountUnderItsLastDigit) {
  EXPECT_EQ(paint(kDescriptives, {.width = 39}), R"(
Descriptive Statistics
───────────────────────────────────────
Variable    N      Mean  Std. Deviation
───────────────────────────────────────
realgdp   203  7221.172      3214.956
infl        .    -3.962         1.0e-05
───────────────────────────────────────
)");
}

TEST(Terminal, WrapsHeadersBeforeItSplitsColumns) {
  EXPECT_EQ(paint(kDescriptives, {.width = 35, .unicode = false}), R"(
Descriptive Statistics
-----------------------------------
                               Std.
Variable    N      Mean   Deviation
-----------------------------------
realgdp   203  7221.172  3214.956
infl        .    -3.962     1.0e-05
-----------------------------------
)");
}

TEST(Terminal, CentresGroupHeadersOverTheirColumns) {
  EXPECT_EQ(paint(kTests, {.width = 80}), R"(
Test for Residuals [a]
─────────────────────────────────────────────────────────
             Test for Autocorrelation of
                      Residuals
          ─────────────────────────────────
Variable  Ljung-Box Statistic     df   輸出  Residual ACF
─────────────────────────────────────────────────────────
日本gdp                12.345  8.000   .             .
realcons              112.345  8.000  0.137        -0.034
─────────────────────────────────────────────────────────
[a] Both tests take the residuals of the selected lag order.
)");
}

TEST(Terminal, SplitsColumnsIntoPanelsButNotAGroupAndWrapsAFootnote) {
  EXPECT_EQ(paint(kTests, {.width = 36}), R"(
Test for Residuals [a]
──────────────────────────────────
          Test for Autocorrelation
                of Residuals
          ────────────────────────
           Ljung-Box
Variable   Statistic     df   輸出
──────────────────────────────────
日本gdp       12.345  8.000   .
realcons     112.345  8.000  0.137
──────────────────────────────────
          Residual
Variable       ACF
──────────────────────────────────
日本gdp       .
realcons    -0.034
──────────────────────────────────
[a] Both tests take the residuals of
    the selected lag order.
)");
}

TEST(Terminal, ShowsTheColumnDimensionOnceAndShortensLabelsOnlyWhenNoColumnFits) {
  EXPECT_EQ(paint(R"({ "type": "table", "title": "Forecast", "rowDimension": { "label": "Variable", "shown": true },
    "columnDimension": { "label": "Forecast", "shown": true }, "columns": [ { "label": "2009 Q4" }, { "label": "F+2" } ],
    "rows": ["real_personal_consumption", "real_personal_income"], "cells": [[13072.718, 13427.684], [12, 9.5]] })",
                  {.width = 30}),
            R"(
Forecast
──────────────────────────────
                     Forecast
                     ─────────
Variable               2009 Q4
──────────────────────────────
real_pers…nsumption  13072.718
real_pers…al_income     12.000
──────────────────────────────
Variable                   F+2
──────────────────────────────
real_pers…nsumption  13427.684
real_pers…al_income      9.500
──────────────────────────────
)");
}

TEST(Terminal, ColourIsBoldTitlesAndDimRules) {
  const std::string text = paint(kDescriptives, {.colour = true});
  EXPECT_THAT(text, HasSubstr("\n\x1b[1mDescriptive Statistics\x1b[0m\n\x1b[2m─"));
  EXPECT_THAT(text, HasSubstr("\nrealgdp   203"));
}

TEST(Terminal, APValueBelowTheLevelIsBoldAndATinyOneIsNamed) {
  const rapidjson::Document document = parseJson(R"({ "procedure": "P", "items": [
    { "type": "table", "footnotes": ["Stable."] },
    { "type": "table", "columns": [ { "label": "t" }, { "label": "Sig." } ], "rows": ["a", "b", "c"],
      "cells": [[2e-308, 2.3e-308], [0.01, 0.05], [1, 0.0499]], "cellFormat": {"type": 5, "width": 8, "decimals": 4} } ] })");
  DocumentView view;
  view.headline = 0;
  view.testLevel = 0.05;
  const std::string rows = "a  2.0e-308  <1e-300\nb  0.0100     0.0500\nc  1.0000     0.0499\n";
  EXPECT_THAT(paintDocumentTerminal(document, {}, {}, view), AllOf(HasSubstr(rows), Not(HasSubstr("bold"))));
  const std::string coloured = paintDocumentTerminal(document, {.colour = true}, {}, view);
  EXPECT_THAT(coloured,
              HasSubstr("a  2.0e-308  \x1b[1m<1e-300\x1b[0m\nb  0.0100     0.0500\nc  1.0000     \x1b[1m0.0499"));
  EXPECT_THAT(coloured, HasSubstr("a Sig. below the level is bold"));
}

TEST(Terminal, PaintsADocumentWithItsChartsListedLast) {
  const rapidjson::Document document =
      parseJson(R"({ "procedure": "Vector Autoregressive Models", "subtitle": "", "items": [
    { "type": "chart", "name": "Time Series -\u001b[2Jgdp", "columns": { "ydata": [1, 2, 3] } },
    { "type": "table", "title": "One", "columns": [ { "label": "t" } ], "rows": ["a"], "cells": [[-1.5]] } ] })");
  EXPECT_EQ('\n' + paintDocumentTerminal(document, {}, commaLanguage()), R"(
Vector Autoregressive Models

One
─────────
        t
─────────
a  -1,500
─────────

Charts
Chart: Time Series -^[[2Jgdp (3 points)
)");
}

TEST(Terminal, OpensWithTheHeadlineAndSaysItOnce) {
  const rapidjson::Document document = parseJson(R"({"procedure": "Dynamics", "items": [
    {"type": "table", "title": "First", "rows": ["a"], "columns": [{"label": "N"}], "cells": [[1]]},
    {"type": "table", "title": "Summary", "rows": ["a"], "columns": [{"label": "N"}], "cells": [[2]],
     "titleFootnotes": [1], "footnotes": ["The test rejects (p = 0.04).", "Rows.", "The model is stable."]}]})");
  DocumentView view;
  view.headline = 1;
  EXPECT_EQ('\n' + paintDocumentTerminal(document, {.width = 24}, {}, view), R"(
Dynamics

At a Glance
• The test rejects
  (p = 0.04).
• The model is stable.

First
────────
       N
────────
a  1.000
────────

Summary [a]
────────
       N
────────
a  2.000
────────
[a] Rows.
)");
}

}  // namespace
}  // namespace workbench
