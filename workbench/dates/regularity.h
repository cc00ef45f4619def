// Do the dates of the rows count on evenly, and if not, where is the first fault?

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/dates/case_calendar.h"

namespace workbench {

// How messages call the rows' dates. Rows count from 0 here and from 1 in texts.
struct DateSource {
  Notice name;                                // 'column "date"'
  std::string order;                          // SQL that sorts by it: "date"
  std::function<Notice(std::size_t)> dateOf;  // text of a row's date
};

// The most common distance between neighbours, and the share of neighbours that have it (0 to 1).
struct Spacing {
  std::int64_t step = 0;
  double share = 0.0;
};

// Of at least two numbers in ascending order. Of equally common distances the smallest.
Spacing commonSpacing(std::span<const std::int64_t> ascending);

// How many cases of the calendar lie between two periods: 1 for neighbours. Nothing when it is no whole number of them.
std::optional<std::int64_t> casesBetween(const CaseCalendar& calendar, const Period& from, const Period& to);

// Throws DataError when a row is not the case of the calendar that follows the row before it, naming the first such
// row, both dates and the remedy. The periods are of the calendar's unit, one for each row.
void requireEvenlySpaced(const std::vector<Period>& periods, const CaseCalendar& calendar, const DateSource& source);

}  // namespace workbench
