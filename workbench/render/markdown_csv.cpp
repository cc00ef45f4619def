#include "workbench/render/markdown_csv.h"

#include <string_view>

#include "workbench/base/spreadsheet_text.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

std::string markdownText(const std::string& text) {
  std::string escaped;
  for (const char c : visibleText(text)) {
    if (std::string_view("\\`*_[]<>|&~$").find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::string corner(const PivotTable& table) {
  return table.rowDimension.shown ? table.rowDimension.label : "";
}

}  // namespace

std::string csvField(const std::string& name) {
  const std::string text = inertText(name);
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

std::string paintMarkdown(const PivotTable& table) {
  std::string out;
  if (table.titleShown && !table.title.empty()) {
    const std::string markers = table.titleMarkers();
    out += "**" + markdownText(table.title) + "**" + (markers.empty() ? "" : " (" + markers + ")") + "\n\n";
  }
  std::string rule = "| :--- |";
  out += "| " + markdownText(corner(table)) + " |";
  for (const std::string& header : table.flatHeaders()) {
    out += ' ' + markdownText(header) + " |";
    rule += " ---: |";
  }
  out += '\n' + rule + '\n';
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    out += "| " + markdownText(table.rows[row]) + " |";
    for (const Cell& cell : table.cells[row]) out += ' ' + cell.shown.text + " |";
    out += '\n';
  }
  for (const Footnote& note : table.footnotes) {
    out += '\n' + (note.marker.empty() ? "" : "(" + note.marker + ") ") + markdownText(note.text) + '\n';
  }
  return out;
}

std::string paintCsv(const PivotTable& table) {
  std::string out = csvField(corner(table));
  for (const std::string& header : table.flatHeaders()) out += ',' + csvField(header);
  out += "\r\n";
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    out += csvField(table.rows[row]);
    for (const Cell& cell : table.cells[row]) out += ',' + (cell.missing ? "" : fullPrecision(cell.value));
    out += "\r\n";
  }
  return out;
}

}  // namespace workbench
