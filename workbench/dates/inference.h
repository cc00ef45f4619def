// The frequency of a column of instants.

#pragma once

#include <cstdint>
#include <vector>

#include "workbench/dates/period.h"

namespace workbench {

struct Frequency {
  Unit unit;
  std::int64_t step = 1;      // units from one row to the next
  bool businessDays = false;  // days of which none is a Saturday or Sunday, though they pass over some
};

// The coarsest unit in which most neighbouring rows are equally far apart, so that month ends, last trading days or
// weeks with a moved holiday count as one row for each month or week. The order of the rows and repeated instants do
// not matter; microseconds since 1970-01-01, all within years 1 to 9999, at least two. Whether every row conforms is
// not checked here. Instants without a common distance give days or seconds.
Frequency inferFrequency(std::vector<std::int64_t> instants);

// Whether days, distinct and ascending, are most of the time one business day apart, over a weekend at least once, and
// none lies on one.
bool passOverWeekends(const std::vector<std::int64_t>& days);

}  // namespace workbench
