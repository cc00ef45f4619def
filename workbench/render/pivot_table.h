// A pivot table of the output document, laid out once for all painters.

#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "workbench/document/document_reader.h"
#include "workbench/render/number_format.h"

namespace workbench {

struct Footnote {
  std::string marker;  // "a", "b", ..., "z", "aa", ...; empty for one that nothing refers to
  std::string text;
};

struct Cell {
  double value = 0;  // full precision; 0 when missing
  bool missing = true;
  NumberText shown;
  bool significant = false;
};

// Texts are as the document holds them: any bytes. Painters make them harmless.
struct PivotTable {
  std::string name;  // plain, of its file and for references to it; empty where it has none
  std::string title;
  bool titleShown = true;
  std::vector<std::size_t> titleFootnotes;  // indexes into footnotes
  std::vector<Footnote> footnotes;
  Dimension rowDimension;
  Dimension columnDimension;
  std::vector<ColumnCategory> columns;
  ColumnWidth columnWidth;
  std::vector<std::string> rows;
  std::vector<std::vector<Cell>> cells;  // one vector a row, one cell a leaf column

  std::size_t leafCount() const;
  bool hasGroups() const;                        // whether any category has children
  std::vector<std::string> leafLabels() const;   // one a leaf: its own label
  std::vector<std::string> flatHeaders() const;  // one a leaf: "Group: Leaf" below a group
  std::string titleMarkers() const;              // "a" or "a, b"; "" without footnotes
};

// A chart of the output document, as far as text output tells of it.
struct ChartItem {
  std::string name;
  std::size_t points = 0;
  const rapidjson::Value* json = nullptr;  // the item itself, in the document
};

// How a document is shown beyond what it holds. Items are named by their places among those of the document.
struct DocumentView {
  std::map<std::size_t, std::vector<std::string>> notes;  // of the workbench, below tables and charts
  std::set<std::size_t> hidden;
  // A table whose unmarked footnotes open the output, instead of standing below it, and charts that follow them.
  std::optional<std::size_t> headline;
  std::set<std::size_t> leadingCharts;
  // The level of the command's tests. With one, what lies below it in columns of p-values is set off.
  std::optional<double> testLevel;
  // Sentences of the headline, and what stands for them.
  std::vector<std::pair<std::string, std::string>> saidOtherwise;
};

using DocumentItem = std::variant<PivotTable, ChartItem>;

// One item of type "table", its numbers as the language writes them.
PivotTable readPivotTable(const rapidjson::Value& item, const Language& language = {});

// Takes the footnotes that nothing refers to out of a table.
std::vector<std::string> takeUnmarkedFootnotes(PivotTable& table);
// The same of the headline's table, as the view says them.
std::vector<std::string> takeHeadline(PivotTable& table, const DocumentView& view);

// Marks what lies below the level in the columns of this label.
void markSignificant(PivotTable& table, const std::string& label, double level);

// The tables and charts of a document in their order; items of other types are skipped.
std::vector<DocumentItem> documentItems(const rapidjson::Value& document, const Language& language = {});

}  // namespace workbench
