// The output document as plain data. Texts are as it holds them: any bytes; whoever shows them makes them harmless.
//
// Absent properties take their defaults. A property of the wrong JSON type throws std::runtime_error.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/document/json_values.h"

namespace workbench {

struct Dimension {
  std::string label;
  bool shown = false;
};

// A top-level column. Without children it is a leaf itself.
struct ColumnCategory {
  std::string label;
  std::vector<std::string> children;

  std::size_t leafCount() const { return children.empty() ? 1 : children.size(); }
};

// Pixels that a column of numbers takes at least and at most where there is room; 0 for no bound.
struct ColumnWidth {
  int min = 0;
  int max = 0;
};

// A table's cell format. Painters size columns by their contents, so that `width` never cuts a number.
struct CellFormat {
  int type = 5;  // 5: plain numeric
  int width = 10;
  int decimals = 3;
};

// An item of type "table".
struct TableItem {
  std::string title;  // the table's name when it has none
  bool titleShown = true;
  std::vector<std::size_t> titleFootnotes;  // indexes into footnotes
  std::vector<std::string> footnotes;
  Dimension rowDimension;
  Dimension columnDimension;
  std::vector<ColumnCategory> columns;
  ColumnWidth columnWidth;
  std::vector<std::string> rows;
  std::vector<CellFormat> formats;         // one a leaf column
  std::vector<std::vector<double>> cells;  // one vector a row, one value a leaf column; NaN where there is none
};

TableItem readTable(const Json& item);

// The items of a document, an array; null when it has none.
const Json* itemsOf(const Json& document);

// A property of a JSON object; null, or "", when the object has none of that name.
const Json* property(const Json& object, const char* name);
std::string textProperty(const Json& object, const char* name);

}  // namespace workbench
