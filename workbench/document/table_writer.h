// One pivot table of an output document as it is built.

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "workbench/document/json_values.h"

namespace workbench {

// A property that is never set is absent from the item. Columns are counted over leaves: a category without
// subcategories, or each subcategory. Operations throw std::logic_error for what the table has no place for.
class TableWriter {
 public:
  TableWriter(JsonPool& pool, std::string name) : pool_(pool), name_(std::move(name)) {}

  void setTitle(const std::string& text);
  void hideTitle(bool hidden);
  void setMinColumnWidth(int points) { setWidth("min", points); }
  void setMaxColumnWidth(int points) { setWidth("max", points); }
  void setDefaultCellFormat(int type, int width, int decimals);
  void setColumnFormat(int column, int type, int width, int decimals);
  void setRowDimensionLabel(const std::string& label, bool shown);
  void setColumnDimensionLabel(const std::string& label, bool shown);
  void addTitleFootnoteRef(int footnote);
  void addFootnote(const std::string& text);

  void addColumnCategories(const std::vector<std::string>& labels);
  void addColumnSubcategories(int category, const std::vector<std::string>& labels);
  void addRowCategories(const std::vector<std::string>& labels);
  void fillColumn(int column, const std::vector<double>& values);  // one value a row; missing where it is shorter
  void fillRow(int row, const std::vector<double>& values);        // one value a leaf column

  // The item; once.
  Json finish();

  // The optional keys of a table, in document order.
  enum Key : std::size_t {
    title,
    titleShown,
    titleFootnotes,
    footnotes,
    rowDimension,
    columnDimension,
    columns,
    rows,
    cells,
    cellFormat,
    columnFormats,
    columnWidth,
    keyCount
  };

 private:
  Json& part(Key key, rapidjson::Type type);
  std::size_t sizeOf(Key key) const;
  void setWidth(const char* bound, int points);
  // Fixes rows and leaf columns; every cell is null until it is filled.
  void layOutCells();
  void requireInside(const char* what, int index, std::size_t count) const;
  void requireOpenLayout() const;
  void requireReferencesInside() const;
  [[noreturn]] void fail(const std::string& text) const;

  // The parts are JSON values in the document's pool from the start, so that finish() moves them and copies nothing.
  JsonPool& pool_;
  std::string name_;
  std::array<Json, keyCount> parts_{};  // null: no setter was called
  std::size_t leaves_ = 0;              // set when the cells are laid out
  int lastFormattedColumn_ = -1;
  int lastFootnoteReference_ = -1;
  bool finished_ = false;
};

}  // namespace workbench
