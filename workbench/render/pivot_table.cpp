#include "workbench/render/pivot_table.h"

#include <algorithm>
#include <limits>

namespace workbench {

namespace {

using rapidjson::Value;

const Value* property(const Value& object, const char* name) {
  const auto member = object.FindMember(name);
  return member == object.MemberEnd() ? nullptr : &member->value;
}

std::string text(const Value& value) {
  return {value.GetString(), value.GetStringLength()};
}

std::vector<std::string> textList(const Value& object, const char* name) {
  std::vector<std::string> texts;
  if (const Value* list = property(object, name))
    for (const Value& entry : list->GetArray()) texts.push_back(text(entry));
  return texts;
}

Dimension readDimension(const Value& item, const char* name) {
  const Value* dimension = property(item, name);
  if (dimension == nullptr) return {};
  const Value* shown = property(*dimension, "shown");
  return {textProperty(*dimension, "label"), shown != nullptr && shown->GetBool()};
}

std::string footnoteMarker(std::size_t index) {
  std::string marker;
  for (std::size_t rest = index + 1; rest > 0; rest = (rest - 1) / 26)
    marker.insert(marker.begin(), static_cast<char>('a' + static_cast<char>((rest - 1) % 26)));
  return marker;
}

void readFootnotes(const Value& item, PivotTable& table) {
  for (std::string& note : textList(item, "footnotes")) table.footnotes.push_back({"", std::move(note)});
  const Value* references = property(item, "titleFootnotes");
  if (references == nullptr) return;
  for (const Value& reference : references->GetArray()) {
    const auto index = static_cast<std::size_t>(reference.GetUint64());
    if (index >= table.footnotes.size()) continue;
    table.titleFootnotes.push_back(index);
    table.footnotes[index].marker = footnoteMarker(index);
  }
}

std::vector<ColumnCategory> readColumns(const Value& item) {
  std::vector<ColumnCategory> columns;
  if (const Value* list = property(item, "columns"))
    for (const Value& entry : list->GetArray())
      columns.push_back({textProperty(entry, "label"), textList(entry, "children")});
  return columns;
}

ColumnWidth readColumnWidth(const Value& item) {
  const Value* width = property(item, "columnWidth");
  const auto bound = [&](const char* name) {
    const Value* pixels = width == nullptr ? nullptr : property(*width, name);
    return pixels == nullptr ? 0 : std::max(pixels->GetInt(), 0);
  };
  return {bound("min"), bound("max")};
}

void readFormat(const Value& object, CellFormat& format) {
  const auto read = [&](const char* name, int& field) {
    if (const Value* value = property(object, name)) field = value->GetInt();
  };
  read("type", format.type);
  read("width", format.width);
  read("decimals", format.decimals);
}

std::vector<CellFormat> readFormats(const Value& item, std::size_t leaves) {
  CellFormat common;
  if (const Value* format = property(item, "cellFormat")) readFormat(*format, common);
  std::vector<CellFormat> formats(leaves, common);
  const Value* perColumn = property(item, "columnFormats");
  if (perColumn == nullptr) return formats;
  for (std::size_t leaf = 0; leaf < leaves; ++leaf)
    if (const Value* format = property(*perColumn, std::to_string(leaf).c_str())) readFormat(*format, formats[leaf]);
  return formats;
}

Cell makeCell(const Value* value, const CellFormat& format, const Language& language) {
  const double number =
      value == nullptr || value->IsNull() ? std::numeric_limits<double>::quiet_NaN() : value->GetDouble();
  const bool missing = isMissing(number);
  return {missing ? 0 : number, missing, formatNumber(number, format, language)};
}

void readCells(const Value& item, const Language& language, PivotTable& table) {
  const std::vector<CellFormat> formats = readFormats(item, table.leafCount());
  const Value* rows = property(item, "cells");
  const rapidjson::SizeType given = rows == nullptr ? 0 : rows->Size();
  for (rapidjson::SizeType r = 0; r < table.rows.size(); ++r) {
    const Value* row = r < given ? &(*rows)[r] : nullptr;
    std::vector<Cell>& cells = table.cells.emplace_back();
    for (rapidjson::SizeType c = 0; c < formats.size(); ++c) {
      const Value* value = row != nullptr && c < row->Size() ? &(*row)[c] : nullptr;
      cells.push_back(makeCell(value, formats[c], language));
    }
  }
}

// What the chart's statements call it; its name when they do not say.
std::string chartTitle(const Value& item) {
  constexpr std::string_view begin = "GUIDE: text.title(label(\"";
  constexpr std::string_view end = "\"))";
  for (const std::string& line : textList(item, "vizl")) {
    if (!line.starts_with(begin) || !line.ends_with(end)) continue;
    return line.substr(begin.size(), line.size() - begin.size() - end.size());
  }
  return textProperty(item, "name");
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

std::string textProperty(const Value& object, const char* name) {
  const Value* value = property(object, name);
  return value == nullptr ? std::string() : text(*value);
}

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
  PivotTable table;
  table.title = textProperty(item, item.HasMember("title") ? "title" : "name");
  if (const Value* shown = property(item, "titleShown")) table.titleShown = shown->GetBool();
  readFootnotes(item, table);
  table.rowDimension = readDimension(item, "rowDimension");
  table.columnDimension = readDimension(item, "columnDimension");
  table.columns = readColumns(item);
  table.columnWidth = readColumnWidth(item);
  table.rows = textList(item, "rows");
  readCells(item, language, table);
  return table;
}

std::vector<DocumentItem> documentItems(const Value& document, const Language& language) {
  std::vector<DocumentItem> items;
  const Value* list = property(document, "items");
  if (list == nullptr) return items;
  for (const Value& item : list->GetArray()) {
    const std::string type = textProperty(item, "type");
    if (type == "table") items.emplace_back(readPivotTable(item, language));
    if (type == "chart") items.emplace_back(readChart(item));
  }
  return items;
}

}  // namespace workbench
