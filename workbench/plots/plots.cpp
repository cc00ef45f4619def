#include "workbench/plots/plots.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>
#include <system_error>
#include <variant>
#include <vector>

#include "workbench/plots/gnuplot.h"
#include "workbench/plots/gnuplot_script.h"
#include "workbench/render/display_text.h"
#include "workbench/render/pivot_table.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

constexpr int kNarrowest = 40;
constexpr int kLongestName = 32;

std::string shortName(std::string_view name) {
  return shortenText(visibleText(name), kLongestName, "...");
}

std::string wrapped(const std::string& text, int width) {
  return fmt::format("{}\n", fmt::join(wrapText(text, width), "\n"));
}

// "* realgdp  # realcons"; empty for one series.
std::string legend(const std::vector<ChartSeries>& series) {
  if (series.size() < 2) return {};
  const std::size_t drawn = std::min(series.size(), kGlyphs.size());
  std::vector<std::string> entries;
  for (std::size_t i = 0; i < drawn; ++i)
    entries.push_back(fmt::format("{} {}", kGlyphs[i], shortName(series[i].name)));
  if (drawn < series.size()) entries.push_back(tr("(the first ^1 of ^2 series)", drawn, series.size()));
  return fmt::format("{}", fmt::join(entries, "  "));
}

std::string axes(const Chart& chart) {
  const auto& categories = chart.data.categories;
  return tr("^1 by ^2, ^3 to ^4", shortName(chart.spec.yLabel), shortName(chart.spec.xLabel),
            shortName(categories.front()), shortName(categories.back()));
}

std::string whyNotDrawn(const ChartData& data) {
  if (!data.problem.empty()) return visibleText(data.problem);
  return hasValues(data) ? "" : tr("All values are missing.");
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

std::vector<Chart> readCharts(const rapidjson::Document& document) {
  std::vector<Chart> charts;
  for (const DocumentItem& item : documentItems(document)) {
    if (const auto* chart = std::get_if<ChartItem>(&item)) charts.push_back(readChart(*chart->json));
  }
  return charts;
}

// Title, axes, span of the categories, and the series by their glyphs where there are several.
std::string plotHeading(const Chart& chart, const TerminalStyle& style) {
  const int width = std::max(style.width, kNarrowest);
  std::string text = paintHeading(chart.spec.title, style);
  if (chart.data.categories.empty()) return text;
  const std::string series = legend(chart.data.series);
  return text + wrapped(axes(chart) + (series.empty() ? "" : ": " + series), width);
}

std::string paintCharts(const std::vector<Chart>& charts, std::string_view output, const TerminalStyle& style) {
  std::vector<std::string> blocks;
  for (const Chart& chart : charts) {
    std::string remark = whyNotDrawn(chart.data);
    std::string rows = remark.empty() ? nextPlot(output) : "";
    if (remark.empty() && rows.empty()) remark = tr("gnuplot cannot draw this chart.");
    if (!remark.empty()) rows = wrapped(remark, std::max(style.width, kNarrowest));
    blocks.push_back(plotHeading(chart, style) + rows);
  }
  return fmt::format("{}", fmt::join(blocks, "\n"));
}

}  // namespace

Plots paintPlots(const rapidjson::Document& document, const TerminalStyle& style, const Locale& locale) {
  const int width = std::max(style.width, kNarrowest);
  const std::vector<Chart> charts = readCharts(document);
  if (charts.empty()) return {};
  std::string script;
  for (const Chart& chart : charts) {
    if (whyNotDrawn(chart.data).empty()) script += gnuplotScript(chart, width, locale);
  }
  try {
    const auto output = runGnuplot(script);
    if (output) return {paintCharts(charts, *output, style), ""};
  } catch (const std::system_error& error) {
    return {"", tr("The charts are not drawn: ^1.", std::string(error.what()))};
  }
  return {"", tr("The charts are not drawn: gnuplot is not installed. Install it (for instance: apt-get install "
                 "gnuplot-nox), or leave out --plots.")};
}

}  // namespace workbench
