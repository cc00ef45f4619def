#include "host/table_builder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "workbench/edge/generator.h"

namespace tablestatjson {

namespace {

using rapidjson::SizeType;
using workbench::Json;
using workbench::jsonNumber;
using workbench::JsonPool;
using workbench::jsonText;
using workbench::jsonTexts;

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
constexpr std::array<const char*, keyCount> kKeyNames = {
    "title",   "titleShown", "titleFootnotes", "footnotes",  "rowDimension",  "columnDimension",
    "columns", "rows",       "cells",          "cellFormat", "columnFormats", "columnWidth"};

Json dimension(const std::string& label, bool shown, JsonPool& pool) {
  Json object(rapidjson::kObjectType);
  object.AddMember("label", jsonText(label, pool), pool);
  object.AddMember("shown", shown, pool);
  return object;
}

Json format(int type, int width, int decimals, JsonPool& pool) {
  Json object(rapidjson::kObjectType);
  object.AddMember("type", type, pool).AddMember("width", width, pool).AddMember("decimals", decimals, pool);
  return object;
}

void setMember(Json& object, Json key, Json value, JsonPool& pool) {
  if (const auto present = object.FindMember(key); present != object.MemberEnd()) {
    present->value = value;
  } else {
    object.AddMember(key, value, pool);
  }
}

std::size_t leafCount(const Json& categories) {
  std::size_t leaves = 0;
  for (const Json& category : categories.GetArray()) {
    const auto children = category.FindMember("children");
    leaves += children == category.MemberEnd() ? 1 : children->value.Size();
  }
  return leaves;
}

}  // namespace

// The parts are JSON values in the document's pool from the start, so that build() moves them and copies nothing.
struct TableBuilder::State {
  StatJSONGenerator& generator;
  JsonPool& pool;
  std::string name;
  std::array<Json, keyCount> parts{};  // null: no setter was called
  std::size_t leaves = 0;              // set when the cells are laid out
  int lastFormattedColumn = -1;
  int lastFootnoteReference = -1;
  bool built = false;

  State(StatJSONGenerator& output, std::string tableName)
      : generator(output), pool(workbench::poolOf(output)), name(std::move(tableName)) {}

  [[noreturn]] void fail(const std::string& text) const { throw std::logic_error("Table '" + name + "': " + text); }

  Json& part(Key key, rapidjson::Type type) {
    if (parts[key].IsNull()) parts[key] = Json(type);
    return parts[key];
  }

  std::size_t sizeOf(Key key) const { return parts[key].IsArray() ? parts[key].Size() : 0; }

  void requireInside(const char* what, int index, std::size_t count) const {
    if (index >= 0 && static_cast<std::size_t>(index) < count) return;
    fail(std::string(what) + " " + std::to_string(index) + " is outside the table, which has " + std::to_string(count) +
         ".");
  }

  void requireOpenLayout() const {
    if (!parts[cells].IsNull()) fail("categories must be complete before the first value is filled in.");
  }

  void setWidth(const char* bound, int points) {
    setMember(part(columnWidth, rapidjson::kObjectType), Json(rapidjson::StringRef(bound)), Json(points), pool);
  }

  // Fixes rows and leaf columns; every cell is null until it is filled.
  void layOutCells() {
    if (!parts[cells].IsNull()) return;
    leaves = leafCount(part(columns, rapidjson::kArrayType));
    const std::size_t rowCount = part(rows, rapidjson::kArrayType).Size();
    Json& grid = part(cells, rapidjson::kArrayType);
    grid.Reserve(static_cast<SizeType>(rowCount), pool);
    for (std::size_t r = 0; r < rowCount; ++r) {
      Json row(rapidjson::kArrayType);
      row.Reserve(static_cast<SizeType>(leaves), pool);
      for (std::size_t c = 0; c < leaves; ++c) row.PushBack(Json(), pool);
      grid.PushBack(row, pool);
    }
  }

  void requireReferencesInside() const {
    if (lastFormattedColumn >= 0) requireInside("formatted column", lastFormattedColumn, leaves);
    if (lastFootnoteReference >= 0) requireInside("footnote", lastFootnoteReference, sizeOf(footnotes));
  }
};

TableBuilder::TableBuilder(StatJSONGenerator& generator, const std::string& name)
    : state_(new State(generator, name)) {}
TableBuilder::~TableBuilder() = default;

void TableBuilder::setTitle(const std::string& text) {
  state_->parts[title] = jsonText(text, state_->pool);
}

void TableBuilder::hideTitle(bool hidden) {
  state_->parts[titleShown].SetBool(!hidden);
}

void TableBuilder::setMinColumnWidth(int points) {
  state_->setWidth("min", points);
}

void TableBuilder::setMaxColumnWidth(int points) {
  state_->setWidth("max", points);
}

void TableBuilder::setDefaultCellFormat(int type, int width, int decimals) {
  state_->parts[cellFormat] = format(type, width, decimals, state_->pool);
}

void TableBuilder::setColumnFormat(int column, int type, int width, int decimals) {
  if (column < 0) state_->requireInside("formatted column", column, 0);
  state_->lastFormattedColumn = std::max(state_->lastFormattedColumn, column);
  JsonPool& pool = state_->pool;
  setMember(state_->part(columnFormats, rapidjson::kObjectType), jsonText(std::to_string(column), pool),
            format(type, width, decimals, pool), pool);
}

void TableBuilder::setRowDimensionLabel(const std::string& label, bool shown) {
  state_->parts[rowDimension] = dimension(label, shown, state_->pool);
}

void TableBuilder::setColumnDimensionLabel(const std::string& label, bool shown) {
  state_->parts[columnDimension] = dimension(label, shown, state_->pool);
}

void TableBuilder::addTitleFootnoteRef(int footnote) {
  if (footnote < 0) state_->requireInside("footnote", footnote, 0);
  state_->lastFootnoteReference = std::max(state_->lastFootnoteReference, footnote);
  state_->part(titleFootnotes, rapidjson::kArrayType).PushBack(footnote, state_->pool);
}

void TableBuilder::addFootnote(const std::string& text) {
  state_->part(footnotes, rapidjson::kArrayType).PushBack(jsonText(text, state_->pool), state_->pool);
}

void TableBuilder::addColumnCategories(const std::vector<std::string>& labels) {
  state_->requireOpenLayout();
  for (const std::string& label : labels) {
    Json category(rapidjson::kObjectType);
    category.AddMember("label", jsonText(label, state_->pool), state_->pool);
    state_->part(columns, rapidjson::kArrayType).PushBack(category, state_->pool);
  }
}

void TableBuilder::addColumnSubcategories(int category, const std::vector<std::string>& labels) {
  state_->requireOpenLayout();
  state_->requireInside("column category", category, state_->sizeOf(columns));
  if (labels.empty()) return;
  setMember(state_->parts[columns][static_cast<SizeType>(category)], Json("children"), jsonTexts(labels, state_->pool),
            state_->pool);
}

void TableBuilder::addRowCategories(const std::vector<std::string>& labels) {
  state_->requireOpenLayout();
  Json& list = state_->part(rows, rapidjson::kArrayType);
  list.Reserve(list.Size() + static_cast<SizeType>(labels.size()), state_->pool);
  for (const std::string& label : labels) list.PushBack(jsonText(label, state_->pool), state_->pool);
}

void TableBuilder::fillColumn(int column, const std::vector<double>& values) {
  state_->layOutCells();
  state_->requireInside("column", column, state_->leaves);
  if (values.size() > state_->sizeOf(rows)) {
    state_->fail("column " + std::to_string(column) + " was given " + std::to_string(values.size()) + " values for " +
                 std::to_string(state_->sizeOf(rows)) + " rows.");
  }
  Json* row = state_->parts[cells].Begin();
  for (const double value : values) (row++)->Begin()[column] = jsonNumber(value);
}

void TableBuilder::fillRow(int row, const std::vector<double>& values) {
  state_->layOutCells();
  state_->requireInside("row", row, state_->sizeOf(rows));
  if (values.size() != state_->leaves) {
    state_->fail("row " + std::to_string(row) + " was given " + std::to_string(values.size()) + " values for " +
                 std::to_string(state_->leaves) + " columns.");
  }
  Json* cell = state_->parts[cells][static_cast<SizeType>(row)].Begin();
  for (const double value : values) *cell++ = jsonNumber(value);
}

void TableBuilder::build() {
  if (std::exchange(state_->built, true)) state_->fail("it is built already.");
  if (!state_->parts[columns].IsNull() && !state_->parts[rows].IsNull()) state_->layOutCells();
  state_->requireReferencesInside();
  JsonPool& pool = state_->pool;
  Json table(rapidjson::kObjectType);
  table.AddMember("type", "table", pool).AddMember("name", jsonText(state_->name, pool), pool);
  for (std::size_t key = 0; key < keyCount; ++key) {
    if (!state_->parts[key].IsNull()) table.AddMember(rapidjson::StringRef(kKeyNames[key]), state_->parts[key], pool);
  }
  workbench::appendItem(state_->generator, std::move(table));
}

}  // namespace tablestatjson
