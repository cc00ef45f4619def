// Do the dates of the rows count on evenly, and if not, where is the first fault?

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "workbench/dates/period.h"

namespace workbench {

// How messages call the rows' dates. Rows count from 0 here and from 1 in texts.
struct DateSource {
  std::string name;                                // 'column "date"'
  std::string order;                               // SQL that sorts by it: "date"
  std::function<std::string(std::size_t)> dateOf;  // text of a row's date
};

// The most common distance between neighbours, and the share of neighbours that have it (0 to 1).
struct Spacing {
  std::int64_t step = 0;
  double share = 0.0;
};

// Of at least two numbers in ascending order. Of equally common distances the smallest.
Spacing commonSpacing(std::span<const std::int64_t> ascending);

// Throws DataError when a row is not exactly `step` units after the row before it, naming the first such row, both
// dates and the remedy. The periods are of one unit, one for each row.
void requireEvenlySpaced(const std::vector<Period>& periods, std::int64_t step, const DateSource& source);

}  // namespace workbench
