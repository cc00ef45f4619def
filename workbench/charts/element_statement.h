// Reading the statement that says what a chart draws.

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "workbench/charts/chart_spec.h"

namespace workbench {

// The columns that the statements before have declared.
struct DeclaredColumns {
  std::map<std::string, std::string> columns;  // name within the statements -> data column
  std::set<std::string> categories;            // names of those that hold categories, not numbers

  const std::string* find(std::string_view name) const;  // null when it was not declared
};

struct ElementStatement {
  ChartElement element;
  bool numericX = false;
  bool whole = true;  // whether everything in the statement was understood
};

// Nothing when the line is no statement that draws a known kind of mark.
std::optional<ElementStatement> readElementStatement(std::string_view line, const DeclaredColumns& declared);

}  // namespace workbench
