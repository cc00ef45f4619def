#include "workbench/report/chart.h"

#include <string>
#include <vector>

#include "workbench/render/pivot_table.h"
#include "workbench/session/texts.h"

namespace workbench {

namespace {

using Json = rapidjson::Value;

std::vector<std::string> specificationLines(const Json& item) {
  std::vector<std::string> lines;
  const auto found = item.FindMember("vizl");
  if (found == item.MemberEnd() || !found->value.IsArray()) return lines;
  for (const Json& line : found->value.GetArray()) {
    lines.push_back(line.IsString() ? std::string(line.GetString(), line.GetStringLength()) : tr("(not a text)"));
  }
  return lines;
}

}  // namespace

Chart readChart(const Json& item) {
  const auto found = item.FindMember("columns");
  const Json noColumns(rapidjson::kObjectType);
  const Json& columns = found != item.MemberEnd() ? found->value : noColumns;
  Chart chart;
  chart.spec = parseVizl(specificationLines(item), columnNames(columns, "seriesname"));
  if (chart.spec.title.empty()) chart.spec.title = textProperty(item, "name");
  chart.data = readChartData(columns, chart.spec);
  return chart;
}

}  // namespace workbench
