// What must hold of every painted table, checked on random ones.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <sstream>

#include "tests/render/render_fixture.h"
#include "workbench/render/display_text.h"
#include "workbench/render/terminal.h"

namespace workbench {
namespace {

class RandomTables {
 public:
  explicit RandomTables(unsigned seed) : random_(seed) {}

  int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  // A name without blanks, so that a painted row can be taken apart again.
  std::string name(int longest) {
    static const std::vector<std::string> letters{"a",  "B", "_", "7",       "é",   "e\xcc\x81",
                                                  "日", "م", "🎉", "\x1b[2J", "\xff"};
    std::string text = "n";
    for (int i = below(longest); i > 0; --i) text += letters[static_cast<std::size_t>(below(11))];
    return text;
  }

  std::string label() { return below(2) == 0 ? name(12) : name(9) + "  " + name(30) + " " + name(5); }

  double number() {
    if (below(8) == 0) return std::nan("");
    const double size = std::pow(10, below(3) == 0 ? below(60) - 30 : below(7) - 1);
    return std::uniform_real_distribution<double>(-size, size)(random_);
  }

  PivotTable table() {
    PivotTable table;
    table.title = label();
    table.footnotes = {{"a", label() + " " + label()}};
    table.rowDimension = {label(), below(2) == 0};
    table.columnDimension = {label(), below(2) == 0};
    for (int i = 1 + below(9); i > 0; --i) table.columns.push_back({label(), children()});
    std::vector<CellFormat> formats;
    for (std::size_t leaf = 0; leaf < table.leafCount(); ++leaf) formats.push_back({5, 10, below(6)});
    for (int i = 1 + below(6); i > 0; --i) {
      table.rows.push_back(name(below(4) == 0 ? 100 : 14));
      std::vector<Cell>& row = table.cells.emplace_back();
      for (const CellFormat& format : formats) {
        const double value = number();
        row.push_back({value, isMissing(value), formatNumber(value, format)});
      }
    }
    return table;
  }

 private:
  std::vector<std::string> children() {
    std::vector<std::string> labels;
    if (below(3) == 0)
      for (int i = 1 + below(5); i > 0; --i) labels.push_back(label());
    return labels;
  }

  std::mt19937 random_;
};

// The lines between two full rules; in a table's text they are title, header, rows, header, rows, ..., footnotes.
std::vector<std::vector<std::string>> sections(const std::string& text) {
  std::vector<std::vector<std::string>> found(1);
  for (const std::string& line : linesOf(text)) {
    if (line.find_first_not_of('-') == std::string::npos) {
      found.emplace_back();
    } else {
      found.back().push_back(line);
    }
  }
  return found;
}

struct Placed {
  std::string text;
  int cell;
};

// The numbers of a painted row, after its label.
std::vector<Placed> numbersOf(const std::string& line) {
  std::vector<Placed> numbers;
  for (std::size_t at = line.find(' '); at < line.size();) {
    const std::size_t start = line.find_first_not_of(' ', at);
    at = std::min(line.find(' ', start), line.size());
    numbers.push_back({line.substr(start, at - start), displayWidth(std::string_view(line).substr(0, start))});
  }
  return numbers;
}

// Checks the panels' rows against the table: each number whole and in order, its point where the column has it.
void checkNumbers(const PivotTable& table, const std::string& text) {
  const auto parts = sections(text);
  std::size_t first = 0;
  for (std::size_t part = 2; part + 1 < parts.size(); part += 2) {
    ASSERT_EQ(parts[part].size(), table.rows.size());
    std::vector<int> points;
    for (std::size_t row = 0; row < table.rows.size(); ++row) {
      const std::vector<Placed> numbers = numbersOf(parts[part][row]);
      ASSERT_LE(first + numbers.size(), table.leafCount());
      points.resize(numbers.size(), -1);
      for (std::size_t i = 0; i < numbers.size(); ++i) {
        const NumberText& expected = table.cells[row][first + i].shown;
        ASSERT_EQ(numbers[i].text, expected.text);
        const int point = numbers[i].cell + static_cast<int>(expected.integerLength);
        if (points[i] < 0) points[i] = point;
        ASSERT_EQ(points[i], point) << "column " << first + i;
      }
    }
    first += points.size();
  }
  ASSERT_EQ(first, table.leafCount());
}

TEST(TerminalProperty, LinesFitNumbersAreWholeAndPointsAlign) {
  RandomTables random(20240607);
  for (int i = 0; i < 1500; ++i) {
    const PivotTable table = random.table();
    const int width = 40 + random.below(161);
    const std::string text = paintTerminal(table, {.width = width, .unicode = false});
    SCOPED_TRACE("width " + std::to_string(width) + '\n' + text);
    for (const std::string& line : linesOf(text)) ASSERT_LE(displayWidth(line), width) << line;
    ASSERT_EQ(text.find('\x1b'), std::string::npos);
    ASSERT_EQ(text.find(" \n"), std::string::npos) << "a blank at the end of a line";
    checkNumbers(table, text);
    if (HasFatalFailure()) return;
  }
}

TEST(TerminalProperty, ANumberWiderThanTheLineStaysWhole) {
  const PivotTable table =
      tableFromJson(R"({ "type": "table", "title": "Wide", "columns": [ { "label": "a" }, { "label": "b" } ],
    "rows": ["consumption"], "cells": [[-123456789012345.678, 1]], "cellFormat": { "decimals": 12 } })");
  const std::string text = paintTerminal(table, {.width = 20, .unicode = false});
  checkNumbers(table, text);
  EXPECT_NE(text.find(".  -123456789012345.671875000000\n"), std::string::npos) << text;
}

TEST(TerminalProperty, HostileTextsStayInert) {
  for (const std::string& hostile : hostileTexts()) {
    PivotTable table =
        tableFromJson(R"({ "type": "table", "rows": ["r"], "columns": [ { "label": "g", "children": ["c"] } ],
      "rowDimension": { "label": "", "shown": true }, "columnDimension": { "label": "", "shown": true }, "cells": [[1.5]] })");
    for (std::string* place : {&table.title, &table.rows[0], &table.columns[0].label, &table.columns[0].children[0],
                               &table.rowDimension.label, &table.columnDimension.label})
      *place = hostile;
    table.footnotes = {{"a", hostile}};
    const std::string text = paintTerminal(table, {});
    EXPECT_EQ(text.find_first_of(std::string("\0\x1b\r\t\x07\x7f", 6)), std::string::npos) << text;
    EXPECT_EQ(visibleText(text.substr(0, text.find('\n'))), text.substr(0, text.find('\n')));
    EXPECT_NE(text.find("1.500\n"), std::string::npos) << text;
    for (const std::string& line : linesOf(text)) EXPECT_LE(displayWidth(line), 80);
  }
}

}  // namespace
}  // namespace workbench
