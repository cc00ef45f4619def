#include "workbench/render/latex_table.h"

#include <gtest/gtest.h>

#include "tests/render/render_fixture.h"
#include "workbench/render/latex_text.h"

namespace workbench {
namespace {

// Each was compiled by pdflatex and read in the page that came of it.
TEST(Latex, TextsActAsNothing) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"R&D_50% of #1 {x} \\x $", "R\\&D\\_50\\% of \\#1 \\{x\\} \\textbackslash{}x \\$"},
      {"a ~ b^2 < c > d | e",
       "a \\textasciitilde{} b\\textasciicircum{}2 \\textless{} c \\textgreater{} d \\textbar{} e"},
      {"[68%] 2 * BIC", "{[}68\\%{]} 2 {*} BIC"},
      {"\"a\" `b` 'c'", "{\\char34}a{\\char34} {\\char96}b{\\char96} 'c'"},
      {"a--b ''c,,d", "a-{}-b '{}'c,{},d"},
      {"Größe ß é ł", "Größe ß é ł"},
      {"β – Δ ≤ −1…", "$\\beta$ -- $\\Delta$ $\\le$ $-$1\\ldots{}"},
      {"中", "\\ifdefined\\Umathcode 中\\else U+4E2D\\fi{}"},
      {"bad \xff", "bad \\ifdefined\\Umathcode \xef\xbf\xbd\\else U+FFFD\\fi{}"},
      {"two\nlines", "two\\textasciicircum{}Jlines"},
  };
  for (const auto& [text, written] : cases) EXPECT_EQ(latexText(text), written);
}

TEST(Latex, WritesAFloatWithTheNumbersAsPrinted) {
  PivotTable table = tableFromJson(R"({ "type": "table", "title": "Fit", "titleFootnotes": [0],
    "footnotes": ["first", "second"], "rowDimension": { "label": "Variable", "shown": true },
    "columns": [ { "label": "R" }, { "label": "Test", "children": ["df", "Sig."] } ],
    "rows": ["real_gdp", "[x]"], "cells": [[7221.171900985223, 8, null], [1e-9, -1.5, 2]] })",
                                   commaLanguage());
  table.name = "fit";
  EXPECT_EQ(paintLatex(table), R"(\begin{table}[htbp]
  \centering
  \caption{Fit\textsuperscript{a}}
  \label{tab:fit}
  \begin{tabular}{lrrr}
    \toprule
     &  & \multicolumn{2}{c}{Test} \\
    \cmidrule(lr){3-4}
    Variable & R & df & Sig. \\
    \midrule
    real\_gdp & 7221,172 & 8,000 & . \\
    {[}x{]} & 1,0e$-$09 & $-$1,500 & 2,000 \\
    \bottomrule
  \end{tabular}
  \par\smallskip
  \begin{minipage}{\linewidth}\footnotesize
    \textsuperscript{a}first\par
    second\par
  \end{minipage}
\end{table}
)");
}

}  // namespace
}  // namespace workbench
