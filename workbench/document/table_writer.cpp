#include "workbench/document/table_writer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>
#include <utility>

namespace workbench {

namespace {

using rapidjson::SizeType;

// The optional keys of a table, in document order.
constexpr std::array<const char*, TableWriter::keyCount> kKeyNames = {
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

void TableWriter::fail(const std::string& text) const {
  throw std::logic_error("Table '" + name_ + "': " + text);
}

Json& TableWriter::part(Key key, rapidjson::Type type) {
  if (parts_[key].IsNull()) parts_[key] = Json(type);
  return parts_[key];
}

std::size_t TableWriter::sizeOf(Key key) const {
  return parts_[key].IsArray() ? parts_[key].Size() : 0;
}

void TableWriter::requireInside(const char* what, int index, std::size_t count) const {
  if (index >= 0 && static_cast<std::size_t>(index) < count) return;
  fail(std::string(what) + " " + std::to_string(index) + " is outside the table, which has " + std::to_string(count) +
       ".");
}

void TableWriter::requireOpenLayout() const {
  if (!parts_[cells].IsNull()) fail("categories must be complete before the first value is filled in.");
}

void TableWriter::setWidth(const char* bound, int points) {
  setMember(part(columnWidth, rapidjson::kObjectType), Json(rapidjson::StringRef(bound)), Json(points), pool_);
}

void TableWriter::layOutCells() {
  if (!parts_[cells].IsNull()) return;
  leaves_ = leafCount(part(columns, rapidjson::kArrayType));
  const std::size_t rowCount = part(rows, rapidjson::kArrayType).Size();
  Json& grid = part(cells, rapidjson::kArrayType);
  grid.Reserve(static_cast<SizeType>(rowCount), pool_);
  for (std::size_t r = 0; r < rowCount; ++r) {
    Json row(rapidjson::kArrayType);
    row.Reserve(static_cast<SizeType>(leaves_), pool_);
    for (std::size_t c = 0; c < leaves_; ++c) row.PushBack(Json(), pool_);
    grid.PushBack(row, pool_);
  }
}

void TableWriter::requireReferencesInside() const {
  if (lastFormattedColumn_ >= 0) requireInside("formatted column", lastFormattedColumn_, leaves_);
  if (lastFootnoteReference_ >= 0) requireInside("footnote", lastFootnoteReference_, sizeOf(footnotes));
}

void TableWriter::setTitle(const std::string& text) {
  parts_[title] = jsonText(text, pool_);
}

void TableWriter::hideTitle(bool hidden) {
  parts_[titleShown].SetBool(!hidden);
}

void TableWriter::setDefaultCellFormat(int type, int width, int decimals) {
  parts_[cellFormat] = format(type, width, decimals, pool_);
}

void TableWriter::setColumnFormat(int column, int type, int width, int decimals) {
  if (column < 0) requireInside("formatted column", column, 0);
  lastFormattedColumn_ = std::max(lastFormattedColumn_, column);
  setMember(part(columnFormats, rapidjson::kObjectType), jsonText(std::to_string(column), pool_),
            format(type, width, decimals, pool_), pool_);
}

void TableWriter::setRowDimensionLabel(const std::string& label, bool shown) {
  parts_[rowDimension] = dimension(label, shown, pool_);
}

void TableWriter::setColumnDimensionLabel(const std::string& label, bool shown) {
  parts_[columnDimension] = dimension(label, shown, pool_);
}

void TableWriter::addTitleFootnoteRef(int footnote) {
  if (footnote < 0) requireInside("footnote", footnote, 0);
  lastFootnoteReference_ = std::max(lastFootnoteReference_, footnote);
  part(titleFootnotes, rapidjson::kArrayType).PushBack(footnote, pool_);
}

void TableWriter::addFootnote(const std::string& text) {
  part(footnotes, rapidjson::kArrayType).PushBack(jsonText(text, pool_), pool_);
}

void TableWriter::addColumnCategories(const std::vector<std::string>& labels) {
  requireOpenLayout();
  for (const std::string& label : labels) {
    Json category(rapidjson::kObjectType);
    category.AddMember("label", jsonText(label, pool_), pool_);
    part(columns, rapidjson::kArrayType).PushBack(category, pool_);
  }
}

void TableWriter::addColumnSubcategories(int category, const std::vector<std::string>& labels) {
  requireOpenLayout();
  requireInside("column category", category, sizeOf(columns));
  if (labels.empty()) return;
  setMember(parts_[columns][static_cast<SizeType>(category)], Json("children"), jsonTexts(labels, pool_), pool_);
}

void TableWriter::addRowCategories(const std::vector<std::string>& labels) {
  requireOpenLayout();
  Json& list = part(rows, rapidjson::kArrayType);
  list.Reserve(list.Size() + static_cast<SizeType>(labels.size()), pool_);
  for (const std::string& label : labels) list.PushBack(jsonText(label, pool_), pool_);
}

void TableWriter::fillColumn(int column, const std::vector<double>& values) {
  layOutCells();
  requireInside("column", column, leaves_);
  if (values.size() > sizeOf(rows)) {
    fail("column " + std::to_string(column) + " was given " + std::to_string(values.size()) + " values for " +
         std::to_string(sizeOf(rows)) + " rows.");
  }
  Json* row = parts_[cells].Begin();
  for (const double value : values) (row++)->Begin()[column] = jsonNumber(value);
}

void TableWriter::fillRow(int row, const std::vector<double>& values) {
  layOutCells();
  requireInside("row", row, sizeOf(rows));
  if (values.size() != leaves_) {
    fail("row " + std::to_string(row) + " was given " + std::to_string(values.size()) + " values for " +
         std::to_string(leaves_) + " columns.");
  }
  Json* cell = parts_[cells][static_cast<SizeType>(row)].Begin();
  for (const double value : values) *cell++ = jsonNumber(value);
}

Json TableWriter::finish() {
  if (std::exchange(finished_, true)) fail("it is built already.");
  if (!parts_[columns].IsNull() && !parts_[rows].IsNull()) layOutCells();
  requireReferencesInside();
  Json table(rapidjson::kObjectType);
  table.AddMember("type", "table", pool_).AddMember("name", jsonText(name_, pool_), pool_);
  for (std::size_t key = 0; key < keyCount; ++key) {
    if (!parts_[key].IsNull()) table.AddMember(rapidjson::StringRef(kKeyNames[key]), parts_[key], pool_);
  }
  return table;
}

}  // namespace workbench
