// The part of the cases that a run uses.

#pragma once

#include <cstddef>
#include <string>

#include "workbench/dataset/dataset.h"
#include "workbench/dates/trends_settings.h"

namespace workbench {

// The first and the last case, as people write its period ("1984Q1") or, where the cases have no dates, its number;
// empty: from the first case, to the last one.
struct RowRange {
  std::string from = {};
  std::string to = {};
};

// Keeps the cases of the range. Call it after defineDates. Throws UsageError for a bound that is no period of the
// cases, lies outside of them, or comes after the other. Returns how many cases lie before the range.
std::size_t keepRange(Dataset& dataset, const TrendsSettings& settings, const RowRange& range);

}  // namespace workbench
