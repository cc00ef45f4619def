#include "workbench/render/terminal_layout.h"

#include <algorithm>
#include <numeric>

#include "workbench/render/display_text.h"

namespace workbench {

namespace {

// A header word beyond this is broken rather than let its column grow.
constexpr int kWidestHeaderWord = 20;

std::vector<ColumnBox> measureColumns(const PivotTable& table) {
  std::vector<ColumnBox> columns;
  for (const std::string& label : table.leafLabels()) columns.push_back({visibleText(label)});
  for (const std::vector<Cell>& row : table.cells) {
    for (std::size_t leaf = 0; leaf < columns.size(); ++leaf) {
      const NumberText& number = row[leaf].shown;
      const int integer = displayWidth(std::string_view(number.text).substr(0, number.integerLength));
      columns[leaf].integerWidth = std::max(columns[leaf].integerWidth, integer);
      columns[leaf].fractionWidth = std::max(columns[leaf].fractionWidth, displayWidth(number.text) - integer);
    }
  }
  return columns;
}

std::vector<HeaderSpan> groupSpans(const PivotTable& table) {
  std::vector<HeaderSpan> groups;
  std::size_t first = 0;
  for (const ColumnCategory& column : table.columns) {
    const std::size_t last = first + column.leafCount();
    if (!column.children.empty()) groups.push_back({visibleText(column.label), first, last});
    first = last;
  }
  return groups;
}

int neededForColumns(const std::vector<ColumnBox>& columns) {
  return std::accumulate(columns.begin(), columns.end(), 0,
                         [](int sum, const ColumnBox& box) { return sum + kColumnGap + box.width; });
}

void labelRows(const PivotTable& table, TableLayout& layout) {
  if (table.rowDimension.shown) layout.corner = visibleText(table.rowDimension.label);
  layout.labelWidth = displayWidth(layout.corner);
  for (const std::string& row : table.rows) {
    layout.rowLabels.push_back(visibleText(row));
    layout.labelWidth = std::max(layout.labelWidth, displayWidth(layout.rowLabels.back()));
  }
}

void shortenLabels(int width, std::string_view ellipsis, TableLayout& layout) {
  if (layout.labelWidth <= width) return;
  layout.labelWidth = width;
  layout.corner = shortenText(layout.corner, width, ellipsis);
  for (std::string& label : layout.rowLabels) label = shortenText(label, width, ellipsis);
}

// Whole headers if the table then fits the width. Otherwise columns only as wide as their numbers and longest header
// words, and row labels that leave room for the widest of them.
void sizeColumns(int width, std::string_view ellipsis, TableLayout& layout) {
  for (ColumnBox& box : layout.columns) box.width = std::max(box.numberWidth(), displayWidth(box.label));
  if (layout.labelWidth + neededForColumns(layout.columns) <= width) return;
  int widest = 0;
  for (ColumnBox& box : layout.columns) {
    box.width = std::max({box.numberWidth(), std::min(longestWord(box.label), kWidestHeaderWord), 2});
    widest = std::max(widest, box.width + kColumnGap);
  }
  shortenLabels(std::max(width - widest, 1), ellipsis, layout);
}

// First leaf of the group that a leaf belongs to; the leaf itself when it stands alone.
std::size_t groupStart(const std::vector<HeaderSpan>& groups, std::size_t leaf) {
  for (const HeaderSpan& group : groups)
    if (leaf >= group.first && leaf < group.last) return group.first;
  return leaf;
}

// One past the last leaf of the panel that begins at `first`: as many as fit, at least one, a group not begun in vain.
std::size_t panelEnd(int width, const TableLayout& layout, std::size_t first) {
  std::size_t last = first;
  for (int used = layout.labelWidth; last < layout.columns.size(); ++last) {
    used += kColumnGap + layout.columns[last].width;
    if (used > width && last > first) break;
  }
  if (last == layout.columns.size()) return last;
  const std::size_t start = groupStart(layout.groups, last);
  return start > first ? start : last;
}

void splitPanels(int width, TableLayout& layout) {
  std::size_t first = 0;
  do {
    ColumnPanel& panel = layout.panels.emplace_back();
    panel.first = first;
    panel.labelWidth = layout.labelWidth;
    const std::size_t last = panelEnd(width, layout, first);
    for (; first < last; ++first) panel.widths.push_back(layout.columns[first].width);
  } while (first < layout.columns.size());
}

bool readable(const std::string& label, int width) {
  return width >= 2 && width >= longestWord(label) && wrapText(label, width).size() <= 2;
}

// Widens the first column under a span until its label stands on two lines, as far as the line has room.
void widenUnderSpans(int width, const std::vector<HeaderSpan>& spans, ColumnPanel& panel) {
  for (const HeaderSpan& span : spans) {
    const std::size_t first = std::max(span.first, panel.first);
    const std::size_t last = std::min(span.last, panel.last());
    if (first >= last) continue;
    const auto spanWidth = [&] { return panel.end(last - 1) - panel.start(first); };
    while (panel.width() < width && !readable(span.label, spanWidth())) ++panel.widths[first - panel.first];
  }
}

}  // namespace

int ColumnPanel::end(std::size_t leaf) const {
  int cell = labelWidth;
  for (std::size_t i = 0; i <= leaf - first; ++i) cell += (cell > 0 ? kColumnGap : 0) + widths[i];
  return cell;
}

int ColumnPanel::start(std::size_t leaf) const {
  return end(leaf) - widths[leaf - first];
}

int ColumnPanel::width() const {
  return widths.empty() ? labelWidth : end(last() - 1);
}

int TableLayout::width() const {
  int widest = 0;
  for (const ColumnPanel& panel : panels) widest = std::max(widest, panel.width());
  return widest;
}

TableLayout layOut(const PivotTable& table, int width, std::string_view ellipsis) {
  TableLayout layout;
  layout.columns = measureColumns(table);
  if (table.columnDimension.shown)
    layout.dimension = {{visibleText(table.columnDimension.label), 0, table.leafCount()}};
  layout.groups = groupSpans(table);
  labelRows(table, layout);
  sizeColumns(width, ellipsis, layout);
  splitPanels(width, layout);
  for (ColumnPanel& panel : layout.panels) {
    widenUnderSpans(width, layout.dimension, panel);
    widenUnderSpans(width, layout.groups, panel);
  }
  return layout;
}

}  // namespace workbench
