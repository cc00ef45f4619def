// The value of one case as a procedure receives it.

#pragma once

#include <algorithm>
#include <cstddef>

#include "workbench/dataset/dataset.h"

namespace workbench {

// System-missing for every case of a text or date column, and for an excluded user-missing value.
inline double caseValue(const Column& column, std::size_t row, bool excludeUserMissing) {
  if (column.kind != ColumnKind::number) return kSystemMissing;
  const double value = column.numbers[row];
  if (excludeUserMissing && !column.userMissing.empty()) {
    const auto& missing = column.userMissing;
    if (std::find(missing.begin(), missing.end(), value) != missing.end()) return kSystemMissing;
  }
  return value;
}

}  // namespace workbench
