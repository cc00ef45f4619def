#include "workbench/render/pivot_table.h"

#include <algorithm>
#include <utility>

#include "workbench/charts/chart.h"

namespace workbench {

namespace {

using rapidjson::Value;

std::string footnoteMarker(std::size_t index) {
  std::string marker;
  for (std::size_t rest = index + 1; rest > 0; rest = (rest - 1) / 26)
    marker.insert(marker.begin(), static_cast<char>('a' + static_cast<char>((rest - 1) % 26)));
  return marker;
}

Cell makeCell(double number, const CellFormat& format, const Language& language) {
  const bool missing = isMissing(number);
  return {.value = missing ? 0 : number, .missing = missing, .shown = formatNumber(number, format, language)};
}

// Tails below this are not told apart: procedures write the smallest number for one that is too small to be held.
void nameTinyProbabilities(PivotTable& table, const std::string& label) {
  constexpr double kTiniest = 1e-300;
  const std::vector<std::string> labels = table.leafLabels();
  for (std::vector<Cell>& row : table.cells)
    for (std::size_t leaf = 0; leaf < labels.size(); ++leaf)
      if (labels[leaf] == label && row[leaf].value > 0 && row[leaf].value < kTiniest) row[leaf].shown = {"<1e-300", 2};
}

ChartItem readChart(const Value& item) {
  ChartItem chart{chartTitle(item), 0, &item};
  const Value* columns = property(item, "columns");
  if (columns == nullptr) return chart;
  // Columns are parallel: a row is a point.
  for (const auto& column : columns->GetObject()) {
    chart.points = std::max<std::size_t>(chart.points, column.value.Size());
  }
  return chart;
}

}  // namespace

std::size_t PivotTable::leafCount() const {
  std::size_t leaves = 0;
  for (const ColumnCategory& column : columns) leaves += column.leafCount();
  return leaves;
}

bool PivotTable::hasGroups() const {
  return std::any_of(columns.begin(), columns.end(), [](const ColumnCategory& c) { return !c.children.empty(); });
}

std::vector<std::string> PivotTable::leafLabels() const {
  std::vector<std::string> labels;
  for (const ColumnCategory& column : columns) {
    if (column.children.empty()) labels.push_back(column.label);
    labels.insert(labels.end(), column.children.begin(), column.children.end());
  }
  return labels;
}

std::vector<std::string> PivotTable::flatHeaders() const {
  std::vector<std::string> headers;
  for (const ColumnCategory& column : columns) {
    if (column.children.empty()) headers.push_back(column.label);
    for (const std::string& child : column.children) headers.push_back(column.label + ": " + child);
  }
  return headers;
}

std::string PivotTable::titleMarkers() const {
  std::string markers;
  for (const std::size_t note : titleFootnotes) markers += (markers.empty() ? "" : ", ") + footnotes[note].marker;
  return markers;
}

PivotTable readPivotTable(const Value& item, const Language& language) {
  TableItem read = readTable(item);
  PivotTable table;
  table.title = std::move(read.title);
  table.titleShown = read.titleShown;
  table.titleFootnotes = std::move(read.titleFootnotes);
  table.rowDimension = std::move(read.rowDimension);
  table.columnDimension = std::move(read.columnDimension);
  table.columns = std::move(read.columns);
  table.columnWidth = read.columnWidth;
  table.rows = std::move(read.rows);
  for (std::string& note : read.footnotes) table.footnotes.push_back({"", std::move(note)});
  for (const std::size_t index : table.titleFootnotes) table.footnotes[index].marker = footnoteMarker(index);
  for (const std::vector<double>& row : read.cells) {
    std::vector<Cell>& cells = table.cells.emplace_back();
    for (std::size_t c = 0; c < row.size(); ++c) cells.push_back(makeCell(row[c], read.formats[c], language));
  }
  nameTinyProbabilities(table, language.tr("Sig."));
  return table;
}

std::vector<std::string> takeUnmarkedFootnotes(PivotTable& table) {
  std::vector<std::string> taken;
  std::vector<Footnote> marked;
  std::vector<std::size_t> newIndex;
  for (Footnote& note : table.footnotes) {
    newIndex.push_back(marked.size());
    if (note.marker.empty()) {
      taken.push_back(std::move(note.text));
    } else {
      marked.push_back({footnoteMarker(marked.size()), std::move(note.text)});
    }
  }
  for (std::size_t& note : table.titleFootnotes) note = newIndex[note];
  table.footnotes = std::move(marked);
  return taken;
}

void markSignificant(PivotTable& table, const std::string& label, double level) {
  const std::vector<std::string> labels = table.leafLabels();
  for (std::vector<Cell>& row : table.cells) {
    for (std::size_t leaf = 0; leaf < labels.size(); ++leaf)
      row[leaf].significant = labels[leaf] == label && !row[leaf].missing && row[leaf].value < level;
  }
}

std::vector<std::string> takeHeadline(PivotTable& table, const DocumentView& view) {
  std::vector<std::string> sentences = takeUnmarkedFootnotes(table);
  for (const auto& [said, instead] : view.saidOtherwise) std::ranges::replace(sentences, said, instead);
  return sentences;
}

std::vector<DocumentItem> documentItems(const Value& document, const Language& language) {
  std::vector<DocumentItem> items;
  const Value* list = itemsOf(document);
  if (list == nullptr) return items;
  for (const Value& item : list->GetArray()) {
    const std::string type = textProperty(item, "type");
    if (type == "table") items.emplace_back(readPivotTable(item, language));
    if (type == "chart") items.emplace_back(readChart(item));
  }
  return items;
}

}  // namespace workbench
