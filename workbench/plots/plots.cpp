#include "workbench/plots/plots.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

#include "workbench/charts/chart.h"
#include "workbench/charts/chart_layout.h"
#include "workbench/plots/gnuplot.h"
#include "workbench/plots/gnuplot_script.h"
#include "workbench/render/chart_description.h"
#include "workbench/render/display_text.h"
#include "workbench/render/pivot_table.h"

namespace workbench {

namespace {

constexpr int kNarrowest = 40;
constexpr int kHeight = 15;
constexpr int kSquareHeight = 21;
constexpr int kCellHeight = 9;
constexpr int kNarrowestCell = 26;
constexpr int kCellGap = 2;
constexpr int kLongestName = 32;

std::string shortName(std::string_view name) {
  return shortenText(visibleText(name), kLongestName, "...");
}

std::string wrapped(const std::string& text, int width) {
  return fmt::format("{}\n", fmt::join(wrapText(text, width), "\n"));
}

// "* realgdp  # realcons", no glyph at a line's end without its name; empty for one series.
std::string legend(const Chart& chart, const Language& language) {
  if (chart.data.series.size() < 2) return {};
  const auto glyphs = seriesGlyphs(chart, layOutChart(chart));
  std::vector<std::string> entries;
  for (const auto& [i, glyph] : glyphs)
    entries.push_back(fmt::format("{}{}{}", glyph, kTiedBlank, shortName(chart.data.series[i].name)));
  if (glyphs.size() < chart.data.series.size())
    entries.push_back(language.tr("(the first ^1 of ^2 series)", glyphs.size(), chart.data.series.size()));
  return fmt::format("{}", fmt::join(entries, "  "));
}

std::string axes(const Chart& chart, const Language& language) {
  const std::string x = shortName(chart.spec.xLabel);
  const std::string y = shortName(chart.spec.yLabel);
  if (chart.spec.numericX) return language.tr("^1 by ^2", y, x);
  const auto& categories = chart.data.categories;
  const std::size_t first = layOutChart(chart).firstShown;
  const std::string shown =
      language.tr("^1 by ^2, ^3 to ^4", y, x, shortName(categories[first]), shortName(categories.back()));
  return first == 0 ? shown
                    : shown + ' ' + language.tr("(the last ^1 of ^2)", categories.size() - first, categories.size());
}

std::string whyNotDrawn(const Chart& chart, const Language& language) {
  if (chart.data.problem) return problemText(chart.data.problem, language);
  return hasValues(chart) ? "" : language.tr("All values are missing.");
}

// gnuplot's rows without the form feed and the blanks around them.
std::string trimRows(std::string_view text) {
  std::string rows;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view row = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    while (row.starts_with('\f')) row.remove_prefix(1);
    row.remove_suffix(row.size() - std::min(row.find_last_not_of(' ') + 1, row.size()));
    if (!row.empty()) rows += fmt::format("{}\n", row);
  }
  return rows;
}

// The part of the output up to the next end mark; empty when there is none.
std::string nextPlot(std::string_view& output) {
  const std::size_t end = output.find(kPlotEnd);
  if (end == std::string_view::npos) return {};
  std::string rows = trimRows(output.substr(0, end));
  output.remove_prefix(end + 1);
  return rows;
}

// Blocks of rows as columns of `width` cells.
std::string sideBySide(const std::vector<std::string>& blocks, int width) {
  std::vector<std::string> rows;
  for (std::size_t column = 0; column < blocks.size(); ++column) {
    std::string_view rest = blocks[column];
    for (std::size_t row = 0; !rest.empty(); ++row) {
      const std::size_t end = std::min(rest.find('\n'), rest.size());
      if (row == rows.size()) rows.emplace_back();
      const int missing = static_cast<int>(column) * width - displayWidth(rows[row]);
      rows[row].append(static_cast<std::size_t>(std::max(missing, 0)), ' ');
      rows[row] += rest.substr(0, end);
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  return fmt::format("{}\n", fmt::join(rows, "\n"));
}

std::vector<Chart> readCharts(const rapidjson::Document& document, const Language& language) {
  std::vector<Chart> charts;
  for (const DocumentItem& item : documentItems(document)) {
    if (const auto* chart = std::get_if<ChartItem>(&item))
      charts.push_back(readChart(*chart->json, language.tr("(not a text)")));
  }
  return charts;
}

// Title, axes, span of the categories, and the series by their glyphs where there are several.
std::string plotHeading(const Chart& chart, const TerminalStyle& style, const Language& language) {
  const int width = std::max(style.width, kNarrowest);
  std::string text = paintHeading(chart.spec.title, style);
  if (chart.data.problem) return text;
  const std::string series = legend(chart.cells.empty() ? chart : chart.cells.front(), language);
  return text + untied(wrapped(visibleText(axes(chart, language)) + (series.empty() ? "" : ": " + series), width));
}

// Draws charts, first as gnuplot's commands for all of them, then from its output, in the same order.
class PlotPainter {
 public:
  PlotPainter(const TerminalStyle& style, const Language& language)
      : style_(style), width_(std::max(style.width, kNarrowest)), language_(language) {}

  std::string script(const Chart& chart) const {
    if (chart.cells.empty())
      return whyNotDrawn(chart, language_).empty() ? gnuplotScript(chart, sizeOf(chart), language_) : "";
    std::string commands;
    for (const Chart& cell : chart.cells)
      if (whyNotDrawn(cell, language_).empty()) commands += gnuplotScript(cell, cellSize(chart), language_);
    return commands;
  }

  std::string paint(const Chart& chart, std::string_view& output) const {
    return plotHeading(chart, style_, language_) +
           (chart.cells.empty() ? rows(chart, width_, output) : panel(chart, output));
  }

 private:
  PlotSize sizeOf(const Chart& chart) const { return {width_, chart.spec.equalAxes ? kSquareHeight : kHeight}; }

  // As many charts beside each other as the panel has columns, or as the width allows.
  std::size_t across(const Chart& panel) const {
    const std::size_t fit = std::max<std::size_t>(static_cast<std::size_t>(width_ / kNarrowestCell), 1);
    return std::min(std::max<std::size_t>(panel.panelColumns.size(), 1), fit);
  }

  PlotSize cellSize(const Chart& panel) const {
    return {width_ / static_cast<int>(across(panel)) - kCellGap, kCellHeight};
  }

  // What gnuplot drew, or why nothing.
  std::string rows(const Chart& chart, int width, std::string_view& output) const {
    std::string remark = whyNotDrawn(chart, language_);
    std::string drawn = remark.empty() ? nextPlot(output) : "";
    if (remark.empty() && drawn.empty()) remark = language_.tr("gnuplot cannot draw this chart.");
    return remark.empty() ? drawn : wrapped(visibleText(remark), width);
  }

  std::string panel(const Chart& panel, std::string_view& output) const {
    const int width = cellSize(panel).width;
    const std::size_t columns = std::max<std::size_t>(panel.panelColumns.size(), 1);
    std::string text;
    for (std::size_t row = 0; row < panel.cells.size(); row += columns) {
      text += paintHeading(panel.panelRows[row / columns], style_);
      for (std::size_t column = 0; column < columns; column += across(panel)) {
        std::vector<std::string> blocks;
        for (std::size_t i = row + column; i < row + std::min(column + across(panel), columns); ++i) {
          const std::string title = shortenText(visibleText(panel.panelColumns[i - row]), width, "...");
          blocks.push_back(title + '\n' + rows(panel.cells[i], width, output));
        }
        text += sideBySide(blocks, width + kCellGap);
      }
    }
    return text;
  }

  const TerminalStyle& style_;
  int width_;
  const Language& language_;
};

std::string paintCharts(const std::vector<Chart>& charts, std::string_view output, const PlotPainter& painter) {
  std::vector<std::string> blocks;
  for (const Chart& chart : charts) blocks.push_back(painter.paint(chart, output));
  return fmt::format("{}", fmt::join(blocks, "\n"));
}

}  // namespace

Plots paintPlots(const rapidjson::Document& document, const TerminalStyle& style, const Language& language) {
  const std::vector<Chart> charts = readCharts(document, language);
  if (charts.empty()) return {};
  const PlotPainter painter(style, language);
  std::string script;
  for (const Chart& chart : charts) script += painter.script(chart);
  try {
    const auto output = runGnuplot(script);
    if (output) return {paintCharts(charts, *output, painter), ""};
  } catch (const std::system_error& error) {
    return {"", language.tr("The charts are not drawn: ^1.", std::string(error.what()))};
  }
  return {"",
          language.tr("The charts are not drawn: gnuplot is not installed. Install it (for instance: apt-get install "
                      "gnuplot-nox), or leave out --plots.")};
}

}  // namespace workbench
