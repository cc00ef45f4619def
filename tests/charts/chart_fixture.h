// Charts for tests, from their statements and their columns as JSON.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "procedures/common/chart_specification.h"
#include "tests/render/render_fixture.h"
#include "workbench/charts/chart.h"

namespace workbench {

inline Chart chartFrom(const std::vector<std::string>& statements, const std::string& columns) {
  rapidjson::Document item =
      parseJson("{\"type\": \"chart\", \"name\": \"Chart\", \"vizl\": [], \"columns\": " + columns + "}");
  for (const std::string& line : statements)
    item["vizl"].PushBack(rapidjson::Value(line, item.GetAllocator()), item.GetAllocator());
  return readChart(item, "(not a text)");
}

// A chart of a kind that the procedure draws.
inline Chart chartOfKind(std::int32_t kind, const std::string& columns) {
  procedures::ChartDescription chart;
  chart.xAxisLabel = "Date";
  chart.yAxisLabel = "Share";
  chart.kind = kind;
  return chartFrom(procedures::chartSpecification(chart, "s", "Title"), columns);
}

// Declares columns: the first one of categories, the rest of numbers.
inline std::vector<std::string> declared(const std::vector<std::string>& names) {
  std::vector<std::string> lines{"SCALE: cat(dim(1), sort.data())"};
  for (const std::string& name : names)
    lines.push_back("DATA: " + name + " = col(source(s), name(\"" + name + "\")" +
                    (name == names.front() ? ", unit.category())" : ")"));
  return lines;
}

inline Chart chartDeclaring(const std::vector<std::string>& names, const std::vector<std::string>& statements,
                            const std::string& columns) {
  std::vector<std::string> lines = declared(names);
  lines.insert(lines.end(), statements.begin(), statements.end());
  return chartFrom(lines, columns);
}

}  // namespace workbench
