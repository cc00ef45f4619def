// Counting the cases of a dataset by their dates.

#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "workbench/dates/period.h"

namespace workbench {

// Counts the days from Monday to Friday alone: two neighbouring ones are 1 apart. A Saturday or Sunday counts as the
// Friday before it.
std::int64_t businessDayOrdinal(std::int64_t day);
std::int64_t dayOfBusinessDay(std::int64_t businessDay);

// Business days that have no case, as ascending businessDayOrdinal()s.
using Holidays = std::vector<std::int64_t>;

// The periods of a dataset's cases: equally spaced, case offset 0 first.
struct CaseCalendar {
  Period first;
  std::int64_t step = 1;                               // units from one case to the next, at least 1
  bool businessDays = false;                           // the unit is the day, and Saturdays and Sundays do not count
  std::shared_ptr<const Holidays> holidays = nullptr;  // nor do these; null: none

  // The same cases counted from another one.
  CaseCalendar from(const Period& other) const { return {other, step, businessDays, holidays}; }
  // The case's period, also before the first and after the last case; nothing outside the calendar's range.
  std::optional<Period> period(std::int64_t caseOffset) const;
  // The case of a period of the same unit; of the nearest earlier (or later) case's when it falls between two.
  std::int64_t caseOffset(const Period& period, bool later = false) const;
};

}  // namespace workbench
