// What must hold of every painted table, checked on random ones.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "tests/render/render_fixture.h"
#include "workbench/render/display_text.h"
#include "workbench/render/terminal.h"

namespace workbench {
namespace {

class RandomTables {
 public:
  int below(int bound) { return std::uniform_int_distribution<int>(0, bound - 1)(random_); }

  PivotTable table() {
    PivotTable table;
    table.title = label();
    table.footnotes = {{"a", label() + " " + label()}};
    table.rowDimension = {label(), below(2) == 0};
    table.columnDimension = {label(), below(2) == 0};
    for (int i = 1 + below(9); i > 0; --i) {
      ColumnCategory& column = table.columns.emplace_back(ColumnCategory{label(), {}});
      if (below(3) == 0) std::generate_n(std::back_inserter(column.children), 1 + below(5), [&] { return label(); });
    }
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
  // A name without blanks, so that a painted row can be taken apart again.
  std::string name(int longest) {
    static const char* const letters[]{"a", "B", "_", "7", "é", "e\xcc\x81", "日", "م", "🎉", "\x1b[2J", "\xff"};
    std::string text = "n";
    for (int i = below(longest); i > 0; --i) text += letters[below(11)];
    return text;
  }

  std::string label() { return below(2) == 0 ? name(12) : name(9) + "  " + name(30) + " " + name(5); }

  double number() {
    if (below(8) == 0) return std::nan("");
    const double size = std::pow(10, below(3) == 0 ? below(60) - 30 : below(7) - 1);
    return std::uniform_real_distribution<double>(-size, size)(random_);
  }

  std::mt19937 random_{20240607};
};

// The lines between two full rules; in a table's text they are title, header, rows, header, rows, ..., footnotes.
std::vector<std::vector<std::string>> sections(const std::string& text) {
  std::vector<std::vector<std::string>> found(1);
  for (const std::string& line : linesOf(text)) {
    const bool rule = line.find_first_not_of('-') == std::string::npos;
    rule ? void(found.emplace_back()) : found.back().push_back(line);
  }
  return found;
}

// The numbers of a painted row, after its label, with the cells they begin at.
std::vector<std::pair<std::string, int>> numbersOf(const std::string& line) {
  std::vector<std::pair<std::string, int>> numbers;
  for (std::size_t at = line.find(' '); at < line.size();) {
    const std::size_t start = line.find_first_not_of(' ', at);
    at = std::min(line.find(' ', start), line.size());
    numbers.emplace_back(line.substr(start, at - start), displayWidth(std::string_view(line).substr(0, start)));
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
      const auto numbers = numbersOf(parts[part][row]);
      ASSERT_LE(first + numbers.size(), table.leafCount());
      points.resize(numbers.size(), -1);
      for (std::size_t i = 0; i < numbers.size(); ++i) {
        const NumberText& expected = table.cells[row][first + i].shown;
        ASSERT_EQ(numbers[i].first, expected.text);
        const int point = numbers[i].second + static_cast<int>(expected.integerLength);
        if (points[i] < 0) points[i] = point;
        ASSERT_EQ(points[i], point) << "column " << first + i;
      }
    }
    first += points.size();
  }
  ASSERT_EQ(first, table.leafCount());
}

TEST(TerminalProperty, LinesFitNumbersAreWholeAndPointsAlign) {
  RandomTables random;
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
  for (const std::string& name : hostileNames()) {
    PivotTable table = tableFromJson(R"({ "type": "table", "rows": ["r"], "columns": [{}], "cells": [[1.5]] })");
    table.title = table.rows[0] = name;
    table.columns[0] = {name, {name}};
    table.rowDimension = table.columnDimension = {name, true};
    table.footnotes = {{"a", name}};
    const std::string text = paintTerminal(table, {});
    for (const std::string& line : linesOf(text)) {
      EXPECT_EQ(visibleText(line), line);
      EXPECT_LE(displayWidth(line), 80) << line;
    }
    EXPECT_NE(text.find("1.500\n"), std::string::npos) << text;
  }
}

}  // namespace
}  // namespace workbench
