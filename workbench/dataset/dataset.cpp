#include "workbench/dataset/dataset.h"

#include <algorithm>

#include "workbench/base/letter_case.h"

namespace workbench {

bool sameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return lowerCase(a) == lowerCase(b); });
}

int Dataset::find(std::string_view name) const {
  const auto found =
      std::find_if(columns.begin(), columns.end(), [&](const Column& column) { return sameName(column.name, name); });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

}  // namespace workbench
