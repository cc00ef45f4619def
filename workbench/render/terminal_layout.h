// Where the parts of a table stand on a character grid.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/render/pivot_table.h"

namespace workbench {

inline constexpr int kColumnGap = 2;

// A leaf column. Its numbers stand with the decimal point `fractionWidth` cells from the right edge.
struct ColumnBox {
  std::string label;
  int integerWidth = 0;
  int fractionWidth = 0;  // with the decimal point
  int width = 0;

  int numberWidth() const { return integerWidth + fractionWidth; }
};

// A header over the leaf columns [first, last).
struct HeaderSpan {
  std::string label;
  std::size_t first = 0;
  std::size_t last = 0;
};

// Neighbouring leaf columns from `first` on that are shown side by side, to the right of the row labels.
struct ColumnPanel {
  std::size_t first = 0;
  std::vector<int> widths;
  int labelWidth = 0;

  std::size_t last() const { return first + widths.size(); }
  int start(std::size_t leaf) const;  // first cell of a leaf's column
  int end(std::size_t leaf) const;    // the cell after it
  int width() const;
};

struct TableLayout {
  std::vector<ColumnBox> columns;
  std::vector<HeaderSpan> dimension;   // the column dimension's label over all columns, if it is shown
  std::vector<HeaderSpan> groups;      // labels of the categories with children
  std::string corner;                  // the row dimension's label, if it is shown
  std::vector<std::string> rowLabels;  // shortened where need be
  int labelWidth = 0;
  std::vector<ColumnPanel> panels;

  int width() const;  // of the widest panel
};

// Texts come out visible (display_text.h). Headers stay on one line if the whole table then fits; otherwise they may
// wrap and the columns are as narrow as numbers and words allow, a group of columns staying together where it can.
TableLayout layOut(const PivotTable& table, int width, std::string_view ellipsis);

}  // namespace workbench
