#include "workbench/render/latex_table.h"

#include <fmt/format.h>

#include <vector>

#include "workbench/render/latex_text.h"

namespace workbench {

namespace {

std::string cellText(const Cell& cell) {
  std::string text;
  for (const char c : cell.shown.text) text += c == '-' ? std::string("$-$") : std::string(1, c);
  return text;
}

std::string row(const std::vector<std::string>& cells) {
  return fmt::format("    {} \\\\\n", fmt::join(cells, " & "));
}

// The groups, each over its columns and a rule.
std::string groupRows(const PivotTable& table) {
  std::vector<std::string> cells{""};
  std::string rules = "   ";
  std::size_t first = 2;
  for (const ColumnCategory& column : table.columns) {
    const std::size_t count = column.leafCount();
    if (column.children.empty()) {
      cells.emplace_back();
    } else {
      cells.push_back(fmt::format("\\multicolumn{{{}}}{{c}}{{{}}}", count, latexText(column.label)));
      rules += fmt::format(" \\cmidrule(lr){{{}-{}}}", first, first + count - 1);
    }
    first += count;
  }
  return row(cells) + rules + "\n";
}

std::string head(const PivotTable& table) {
  std::vector<std::string> cells{table.rowDimension.shown ? latexText(table.rowDimension.label) : ""};
  for (const std::string& label : table.leafLabels()) cells.push_back(latexText(label));
  return (table.hasGroups() ? groupRows(table) : "") + row(cells);
}

std::string body(const PivotTable& table) {
  std::string out;
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    std::vector<std::string> cells{latexText(table.rows[i])};
    for (const Cell& cell : table.cells[i]) cells.push_back(cellText(cell));
    out += row(cells);
  }
  return out;
}

std::string caption(const PivotTable& table) {
  const std::string markers = table.titleMarkers();
  std::string out = latexText(table.title);
  if (!markers.empty()) out += fmt::format("\\textsuperscript{{{}}}", markers);
  return fmt::format("  \\caption{{{}}}\n", out);
}

std::string notes(const PivotTable& table) {
  if (table.footnotes.empty()) return {};
  std::string out = "  \\par\\smallskip\n  \\begin{minipage}{\\linewidth}\\footnotesize\n";
  for (const Footnote& note : table.footnotes) {
    const std::string marker = note.marker.empty() ? "" : fmt::format("\\textsuperscript{{{}}}", note.marker);
    out += fmt::format("    {}{}\\par\n", marker, latexText(note.text));
  }
  return out + "  \\end{minipage}\n";
}

}  // namespace

std::string paintLatex(const PivotTable& table) {
  std::string out = "\\begin{table}[htbp]\n  \\centering\n" + caption(table);
  if (!table.name.empty()) out += fmt::format("  \\label{{tab:{}}}\n", table.name);
  out += fmt::format("  \\begin{{tabular}}{{l{}}}\n    \\toprule\n", std::string(table.leafCount(), 'r'));
  out += head(table) + "    \\midrule\n" + body(table) + "    \\bottomrule\n  \\end{tabular}\n";
  return out + notes(table) + "\\end{table}\n";
}

}  // namespace workbench
