#include "workbench/charts/chart.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <utility>

#include "workbench/base/visible_text.h"
#include "workbench/charts/chart_columns.h"
#include "workbench/charts/chart_language.h"
#include "workbench/charts/chart_layout.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;

std::vector<std::string> statements(const Json& item, const std::string& notAText) {
  std::vector<std::string> lines;
  const auto found = item.FindMember("vizl");
  if (found == item.MemberEnd() || !found->value.IsArray()) return lines;
  for (const Json& line : found->value.GetArray()) {
    lines.push_back(line.IsString() ? std::string(line.GetString(), line.GetStringLength()) : notAText);
  }
  return lines;
}

std::string nameOf(const Json& item) {
  const auto found = item.FindMember("name");
  return found == item.MemberEnd() ? "" : std::string(found->value.GetString(), found->value.GetStringLength());
}

std::vector<std::string> inOrderOfAppearance(const ChartColumns& columns, const std::string& name, std::size_t rows) {
  std::vector<std::string> texts;
  for (std::size_t row = 0; row < rows; ++row) {
    std::string text = columns.text(name, row);
    if (std::ranges::find(texts, text) == texts.end()) texts.push_back(std::move(text));
  }
  return texts;
}

// The cells of one row of a panel share their value axis.
void shareValueAxes(std::vector<Chart>& cells, std::size_t columns) {
  for (std::size_t first = 0; first < cells.size(); first += columns) {
    std::optional<ChartSpec::Range> extent;
    for (std::size_t i = first; i < first + columns; ++i)
      extent = joined(extent, valueExtent(cells[i], layOutChart(cells[i])));
    for (std::size_t i = first; i < first + columns; ++i) cells[i].besides = extent;
  }
}

void readPanel(const ChartColumns& columns, Chart& chart) {
  const auto& [rowColumn, columnColumn] = *chart.spec.panel;
  const std::size_t count = columns.rowCount(chart.spec);
  const auto rows = inOrderOfAppearance(columns, rowColumn, count);
  const auto across = inOrderOfAppearance(columns, columnColumn, count);
  std::map<std::pair<std::string, std::string>, std::vector<std::size_t>> members;
  for (std::size_t row = 0; row < count; ++row)
    members[{columns.text(rowColumn, row), columns.text(columnColumn, row)}].push_back(row);
  for (const std::string& row : rows) {
    for (const std::string& column : across) {
      Chart& cell = chart.cells.emplace_back();
      cell.spec = chart.spec;
      cell.spec.panel.reset();
      cell.spec.title = row + " / " + column;
      cell.data = readChartData(columns, cell.spec, members[{row, column}]);
    }
  }
  shareValueAxes(chart.cells, across.size());
  chart.data.series.clear();
  for (const std::string& row : rows) chart.panelRows.push_back(visibleText(row));
  for (const std::string& column : across) chart.panelColumns.push_back(visibleText(column));
}

}  // namespace

Chart readChart(const Json& item, const std::string& notAText) {
  const Json noColumns(rapidjson::kObjectType);
  const auto found = item.FindMember("columns");
  const ChartColumns columns(found != item.MemberEnd() ? found->value : noColumns);
  Chart chart;
  chart.spec = parseChartLanguage(statements(item, notAText), columns.distinctTexts("seriesname"));
  if (chart.spec.title.empty()) chart.spec.title = nameOf(item);
  std::vector<std::size_t> rows(columns.rowCount(chart.spec));
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  chart.data = readChartData(columns, chart.spec, rows);
  if (chart.spec.panel && !chart.data.problem) readPanel(columns, chart);
  return chart;
}

std::string chartTitle(const Json& item) {
  std::string title = parseChartLanguage(statements(item, ""), {}).title;
  return title.empty() ? nameOf(item) : title;
}

}  // namespace workbench
