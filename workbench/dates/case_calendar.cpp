#include "workbench/dates/case_calendar.h"

#include <algorithm>
#include <cassert>
#include <ranges>

#include "workbench/dates/floor_division.h"

namespace workbench {

namespace {

constexpr std::int64_t kEpochMonday = -3;  // 1969-12-29, counted from 1970-01-01

// Counts business days without holidays: a holiday counts as the day before it.
std::int64_t workingDayOrdinal(std::int64_t businessDay, const Holidays* holidays) {
  if (holidays == nullptr) return businessDay;
  return businessDay - (std::ranges::upper_bound(*holidays, businessDay) - holidays->begin());
}

// The i-th holiday (from 0) comes before working day w if it is at most the business day w + i.
std::int64_t dayOfWorkingDay(std::int64_t workingDay, const Holidays* holidays) {
  if (holidays == nullptr) return dayOfBusinessDay(workingDay);
  const auto numbers = std::views::iota(0, static_cast<int>(holidays->size()));
  const auto passed = std::ranges::partition_point(
      numbers, [&](int i) { return (*holidays)[static_cast<std::size_t>(i)] - i <= workingDay; });
  return dayOfBusinessDay(workingDay + (passed - numbers.begin()));
}

}  // namespace

std::int64_t businessDayOrdinal(std::int64_t day) {
  const std::int64_t sinceMonday = day - kEpochMonday;
  const std::int64_t week = floorDivide(sinceMonday, 7);
  return week * 5 + std::min<std::int64_t>(sinceMonday - week * 7, 4);
}

std::int64_t dayOfBusinessDay(std::int64_t businessDay) {
  const std::int64_t week = floorDivide(businessDay, 5);
  return kEpochMonday + week * 7 + (businessDay - week * 5);
}

std::optional<Period> CaseCalendar::period(std::int64_t caseOffset) const {
  constexpr std::int64_t kBeyondAnyRange = std::int64_t{1} << 40;
  const std::int64_t limit = kBeyondAnyRange / step;
  if (caseOffset > limit || caseOffset < -limit) return std::nullopt;
  if (!businessDays) return first.shifted(caseOffset * step);
  const std::int64_t start = workingDayOrdinal(businessDayOrdinal(first.ordinal()), holidays.get());
  return first.shifted(dayOfWorkingDay(start + caseOffset * step, holidays.get()) - first.ordinal());
}

std::int64_t CaseCalendar::caseOffset(const Period& period, bool later) const {
  assert(period.unit() == first.unit());
  std::int64_t distance = period.ordinal() - first.ordinal();
  if (businessDays) {
    const std::int64_t counted = workingDayOrdinal(businessDayOrdinal(period.ordinal()), holidays.get());
    const bool hasNoCase = dayOfWorkingDay(counted, holidays.get()) != period.ordinal();
    distance =
        counted + (later && hasNoCase ? 1 : 0) - workingDayOrdinal(businessDayOrdinal(first.ordinal()), holidays.get());
  }
  return later ? -floorDivide(-distance, step) : floorDivide(distance, step);
}

}  // namespace workbench
