// Days from Monday to Friday that are no cases.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "workbench/dates/case_calendar.h"

namespace workbench {

// The word that declares every business day without a row a holiday, up to so many in a row: markets have closed for as
// long, and longer gaps are more likely lost data.
inline constexpr const char* kGapsAreHolidays = "gaps";
inline constexpr std::int64_t kLongestHoliday = 10;

// From days as people write them and the word above. Days on weekends are left out. `days` are the rows' days, in any
// order. Throws UsageError for what is no day, DataError for a holiday that has a row.
std::shared_ptr<const Holidays> holidaysFrom(const std::vector<std::string>& words, const std::vector<Period>& days);

}  // namespace workbench
