// Values that are numbers but hardly observations.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

enum class Suspicion {
  fillCode,  // a usual mark of missing values (-9999, 1e20), apart from all other values
  infinite,
  outlier,  // at least 1,000 times its neighbours, and 100 times the median of the sizes
  total     // the last value is the sum of all others
};

struct SuspiciousValues {
  Suspicion suspicion;
  std::string column;
  double value = 0.0;             // of the first one
  std::vector<std::size_t> rows;  // from 0
};

// Of the numeric columns among `columns` (indexes), column by column; missing values, declared ones too, are none. A
// column of only zeros has no total.
std::vector<SuspiciousValues> suspiciousValues(const Dataset& dataset, std::span<const int> columns);

}  // namespace workbench
