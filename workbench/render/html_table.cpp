#include "workbench/render/html_table.h"

#include <fmt/format.h>

#include "workbench/render/html_escape.h"

namespace workbench {

namespace {

// A name keeps its own direction and does not turn the text around it.
std::string name(const std::string& text) {
  return fmt::format("<bdi>{}</bdi>", htmlText(text));
}

std::string opening(const PivotTable& table) {
  const int most = table.columnWidth.max;
  const std::string widest = most > 0 ? fmt::format(" data-widest=\"{}\"", most) : "";
  if (!table.titleShown)
    return fmt::format("<table class=\"pivot\"{} aria-label=\"{}\">\n", widest, htmlText(table.title));
  const std::string markers = table.titleMarkers();
  return fmt::format("<table class=\"pivot\"{}>\n<caption>{}{}</caption>\n", widest, name(table.title),
                     markers.empty() ? markers : fmt::format("<sup>{}</sup>", markers));
}

// The width of a column group is that of each of its columns, which grow where their contents need more.
std::string columnGroups(const PivotTable& table) {
  const int least = table.columnWidth.min;
  const std::string width = least > 0 ? fmt::format(" width=\"{}\"", least) : "";
  const auto group = [&](std::size_t span) {
    return fmt::format("<colgroup span=\"{}\"{}></colgroup>\n", span, width);
  };
  std::string out = "<colgroup></colgroup>\n";
  if (!table.hasGroups()) return out + group(table.leafCount());
  for (const ColumnCategory& column : table.columns) out += group(column.leafCount());
  return out;
}

std::string corner(const PivotTable& table, int headerRows) {
  const std::string span = headerRows > 1 ? fmt::format(" rowspan=\"{}\"", headerRows) : "";
  if (!table.rowDimension.shown) return fmt::format("<td class=\"corner\"{}></td>", span);
  return fmt::format("<th scope=\"col\" class=\"corner\"{}>{}</th>", span, name(table.rowDimension.label));
}

std::string leafHeader(const std::string& label) {
  return fmt::format("<th scope=\"col\">{}</th>", name(label));
}

// Headers of the upper of two levels; a category without children reaches down through both.
std::string upperHeaders(const PivotTable& table) {
  std::string out;
  for (const ColumnCategory& column : table.columns) {
    out += column.children.empty() ? fmt::format("<th scope=\"col\" rowspan=\"2\">{}</th>", name(column.label))
                                   : fmt::format("<th scope=\"colgroup\" colspan=\"{}\" class=\"over\">{}</th>",
                                                 column.children.size(), name(column.label));
  }
  return out;
}

std::string lowerHeaders(const PivotTable& table) {
  std::string out;
  for (const ColumnCategory& column : table.columns) {
    if (column.children.empty() && !table.hasGroups()) out += leafHeader(column.label);
    for (const std::string& child : column.children) out += leafHeader(child);
  }
  return out;
}

std::string head(const PivotTable& table) {
  std::vector<std::string> rows;
  if (table.columnDimension.shown && table.leafCount() > 0)
    rows.push_back(fmt::format("<th scope=\"col\" colspan=\"{}\" class=\"over\">{}</th>", table.leafCount(),
                               name(table.columnDimension.label)));
  if (table.hasGroups()) rows.push_back(upperHeaders(table));
  rows.push_back(lowerHeaders(table));
  rows.front().insert(0, corner(table, static_cast<int>(rows.size())));
  return fmt::format("<thead>\n<tr>{}</tr>\n</thead>\n", fmt::join(rows, "</tr>\n<tr>"));
}

std::string body(const PivotTable& table) {
  std::string out = "<tbody>\n";
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    out += fmt::format("<tr><th scope=\"row\">{}</th>", name(table.rows[row]));
    for (const Cell& cell : table.cells[row])
      out += fmt::format("<td{} data-value=\"{}\">{}</td>", cell.significant ? " class=\"significant\"" : "",
                         cell.missing ? "" : fullPrecision(cell.value), htmlText(cell.shown.text));
    out += "</tr>\n";
  }
  return out + "</tbody>\n";
}

std::string foot(const PivotTable& table) {
  if (table.footnotes.empty()) return {};
  std::string rows;
  for (const Footnote& note : table.footnotes)
    rows += fmt::format("<tr><td colspan=\"{}\"><div>{}{}</div></td></tr>\n", table.leafCount() + 1,
                        note.marker.empty() ? "" : "<sup>" + note.marker + "</sup> ", name(note.text));
  return fmt::format("<tfoot>\n{}</tfoot>\n", rows);
}

}  // namespace

std::string htmlTable(const PivotTable& table) {
  return opening(table) + columnGroups(table) + head(table) + body(table) + foot(table) + "</table>\n";
}

}  // namespace workbench
