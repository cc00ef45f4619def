#include "workbench/document/document_reader.h"

#include <algorithm>
#include <limits>

namespace workbench {

namespace {

std::string text(const Json& value) {
  return {value.GetString(), value.GetStringLength()};
}

std::vector<std::string> textList(const Json& object, const char* name) {
  std::vector<std::string> texts;
  if (const Json* list = property(object, name))
    for (const Json& entry : list->GetArray()) texts.push_back(text(entry));
  return texts;
}

Dimension readDimension(const Json& item, const char* name) {
  const Json* dimension = property(item, name);
  if (dimension == nullptr) return {};
  const Json* shown = property(*dimension, "shown");
  return {textProperty(*dimension, "label"), shown != nullptr && shown->GetBool()};
}

void readFootnotes(const Json& item, TableItem& table) {
  table.footnotes = textList(item, "footnotes");
  const Json* references = property(item, "titleFootnotes");
  if (references == nullptr) return;
  for (const Json& reference : references->GetArray()) {
    const auto index = static_cast<std::size_t>(reference.GetUint64());
    if (index < table.footnotes.size()) table.titleFootnotes.push_back(index);
  }
}

std::vector<ColumnCategory> readColumns(const Json& item) {
  std::vector<ColumnCategory> columns;
  if (const Json* list = property(item, "columns"))
    for (const Json& entry : list->GetArray())
      columns.push_back({textProperty(entry, "label"), textList(entry, "children")});
  return columns;
}

ColumnWidth readColumnWidth(const Json& item) {
  const Json* width = property(item, "columnWidth");
  const auto bound = [&](const char* name) {
    const Json* pixels = width == nullptr ? nullptr : property(*width, name);
    return pixels == nullptr ? 0 : std::max(pixels->GetInt(), 0);
  };
  return {bound("min"), bound("max")};
}

void readFormat(const Json& object, CellFormat& format) {
  const auto read = [&](const char* name, int& field) {
    if (const Json* value = property(object, name)) field = value->GetInt();
  };
  read("type", format.type);
  read("width", format.width);
  read("decimals", format.decimals);
}

std::vector<CellFormat> readFormats(const Json& item, std::size_t leaves) {
  CellFormat common;
  if (const Json* format = property(item, "cellFormat")) readFormat(*format, common);
  std::vector<CellFormat> formats(leaves, common);
  const Json* perColumn = property(item, "columnFormats");
  if (perColumn == nullptr) return formats;
  for (std::size_t leaf = 0; leaf < leaves; ++leaf)
    if (const Json* format = property(*perColumn, std::to_string(leaf).c_str())) readFormat(*format, formats[leaf]);
  return formats;
}

double readNumber(const Json* value) {
  return value == nullptr || value->IsNull() ? std::numeric_limits<double>::quiet_NaN() : value->GetDouble();
}

void readCells(const Json& item, TableItem& table) {
  const Json* rows = property(item, "cells");
  const rapidjson::SizeType given = rows == nullptr ? 0 : rows->Size();
  for (rapidjson::SizeType r = 0; r < table.rows.size(); ++r) {
    const Json* row = r < given ? &(*rows)[r] : nullptr;
    std::vector<double>& cells = table.cells.emplace_back();
    for (rapidjson::SizeType c = 0; c < table.formats.size(); ++c) {
      cells.push_back(readNumber(row != nullptr && c < row->Size() ? &(*row)[c] : nullptr));
    }
  }
}

}  // namespace

const Json* property(const Json& object, const char* name) {
  const auto member = object.FindMember(name);
  return member == object.MemberEnd() ? nullptr : &member->value;
}

std::string textProperty(const Json& object, const char* name) {
  const Json* value = property(object, name);
  return value == nullptr ? std::string() : text(*value);
}

TableItem readTable(const Json& item) {
  TableItem table;
  table.title = textProperty(item, item.HasMember("title") ? "title" : "name");
  if (const Json* shown = property(item, "titleShown")) table.titleShown = shown->GetBool();
  readFootnotes(item, table);
  table.rowDimension = readDimension(item, "rowDimension");
  table.columnDimension = readDimension(item, "columnDimension");
  table.columns = readColumns(item);
  table.columnWidth = readColumnWidth(item);
  table.rows = textList(item, "rows");
  std::size_t leaves = 0;
  for (const ColumnCategory& column : table.columns) leaves += column.leafCount();
  table.formats = readFormats(item, leaves);
  readCells(item, table);
  return table;
}

const Json* itemsOf(const Json& document) {
  return document.IsObject() ? property(document, "items") : nullptr;
}

}  // namespace workbench
