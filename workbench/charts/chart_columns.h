// The data columns of a chart item, read from its JSON.

#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "workbench/base/json.h"
#include "workbench/charts/chart_spec.h"

namespace workbench {

class ChartColumns {
 public:
  explicit ChartColumns(const rapidjson::Value& columns) : columns_(columns) {}

  bool has(const std::string& name) const { return find(name) != nullptr; }

  // Cells of a column that the item has; numbers as text in full precision, missing or infinite ones as NaN.
  std::string text(const std::string& name, std::size_t row) const;
  double number(const std::string& name, std::size_t row) const;

  std::set<std::string> distinctTexts(const std::string& name) const;  // none when there is no such column

  // Rows in the shortest of the columns that the statements name and the item has.
  std::size_t rowCount(const ChartSpec& spec) const;

 private:
  const rapidjson::Value* find(const std::string& name) const;

  const rapidjson::Value& columns_;
};

// The columns without which an element cannot be drawn, and those of the panel.
std::vector<std::string> requiredColumns(const ChartSpec& spec);

}  // namespace workbench
