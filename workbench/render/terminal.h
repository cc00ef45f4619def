// Tables as text for a terminal.

#pragma once

#include <string>

#include "workbench/render/pivot_table.h"

namespace workbench {

struct TerminalStyle {
  int width = 80;           // cells a line; taken as at least 20
  bool colour = false;      // bold titles and p-values below the level, dim rules, by escape sequences
  bool unicode = true;      // line-drawing characters; otherwise ASCII (names keep their letters)
  bool listsCharts = true;  // of a document: the names of its charts below the tables
};

// Title, panels of columns as wide as the line allows (row labels repeated in each), footnotes; every line ends with
// '\n' and fits the width, unless one number alone does not. Numbers are never cut: long headers wrap, long row labels
// are shortened. Columns align on the decimal point.
std::string paintTerminal(const PivotTable& table, const TerminalStyle& style);

// Any text as a title: wrapped lines, bold where the style has colour; nothing for an empty text.
std::string paintHeading(const std::string& text, const TerminalStyle& style);

// The headline alone; nothing when the view has none.
std::string paintHeadlineTerminal(const rapidjson::Document& document, const TerminalStyle& style,
                                  const Language& language, const DocumentView& view);

// The document's heading, its headline, its tables with the notes below them, and a list of its charts.
std::string paintDocumentTerminal(const rapidjson::Document& document, const TerminalStyle& style,
                                  const Language& language = {}, const DocumentView& view = {});

}  // namespace workbench
