// What became of the cases that a procedure read: listwise deletion over chosen columns.

#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

struct RowAccount {
  std::int64_t read = 0;
  std::int64_t used = 0;
  std::int64_t dropped = 0;
  std::vector<std::int64_t> missing;       // cases missing in each column, in the order asked for
  std::vector<std::int64_t> firstDropped;  // offsets of the first dropped cases, at most three
  std::int64_t firstUsed = -1;             // offsets; -1 when no case was used
  std::int64_t lastUsed = -1;
  bool gapInside = false;  // a dropped case lies between two used ones
};

// The columns are indexes into the dataset. With `excludeUserMissing`, user-missing values count as missing.
RowAccount accountRows(const Dataset& dataset, std::span<const int> columns, bool excludeUserMissing);

}  // namespace workbench
