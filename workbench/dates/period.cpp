#include "workbench/dates/period.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <limits>
#include <utility>

#include "workbench/dates/floor_division.h"

namespace workbench {

namespace {

using namespace std::chrono;

constexpr std::int64_t kEpochYear = 1970;
constexpr std::int64_t kLastYear = 9999;
constexpr sys_seconds kRangeStart = sys_days{year{1} / January / 1};
constexpr sys_seconds kRangeEnd = sys_days{year{kLastYear} / December / 31} + hours{24} - seconds{1};
constexpr sys_days kEpochMonday = sys_days{year{1969} / December / 29};

constexpr std::array<std::string_view, 9> kUnitNames{"year", "quarter", "month",  "week",       "day",
                                                     "hour", "minute",  "second", "observation"};
constexpr std::array kCalendarUnits{Unit::year, Unit::month, Unit::day, Unit::hour, Unit::minute, Unit::second};
constexpr std::array kQuarterUnits{Unit::year, Unit::quarter};
constexpr std::array kWeekUnits{Unit::year, Unit::week};
constexpr std::array kObservationUnits{Unit::observation};

// Months since 1970-01; also of months before the epoch.
std::int64_t monthOrdinal(sys_days day) {
  const year_month_day date{day};
  return (int{date.year()} - kEpochYear) * 12 + static_cast<std::int64_t>(unsigned{date.month()}) - 1;
}

sys_days monthStart(std::int64_t ordinal) {
  const std::int64_t years = floorDivide(ordinal, 12);
  const year calendarYear{static_cast<int>(kEpochYear + years)};
  return sys_days{calendarYear / month{static_cast<unsigned>(ordinal - years * 12 + 1)} / 1};
}

// 4 January always lies in week 1.
sys_days firstMonday(std::int64_t isoYear) {
  const sys_days day = sys_days{year{static_cast<int>(isoYear)} / January / 4};
  return day - (weekday{day} - Monday);
}

std::int64_t ordinalOf(Unit unit, sys_seconds time) {
  const sys_days day = floor<days>(time);
  switch (unit) {
    case Unit::year:
      return floorDivide(monthOrdinal(day), 12);
    case Unit::quarter:
      return floorDivide(monthOrdinal(day), 3);
    case Unit::month:
      return monthOrdinal(day);
    case Unit::week:
      return floorDivide((day - kEpochMonday).count(), 7);
    case Unit::day:
      return day.time_since_epoch().count();
    case Unit::hour:
      return floor<hours>(time).time_since_epoch().count();
    case Unit::minute:
      return floor<minutes>(time).time_since_epoch().count();
    case Unit::second:
      return time.time_since_epoch().count();
    case Unit::observation:
      break;
  }
  assert(!"an observation has no place in the calendar");
  return 0;
}

// The first second of the period.
sys_seconds startOf(Unit unit, std::int64_t ordinal) {
  switch (unit) {
    case Unit::year:
      return monthStart(ordinal * 12);
    case Unit::quarter:
      return monthStart(ordinal * 3);
    case Unit::month:
      return monthStart(ordinal);
    case Unit::week:
      return kEpochMonday + days{ordinal * 7};
    case Unit::day:
      return sys_days{days{ordinal}};
    case Unit::hour:
      return sys_seconds{hours{ordinal}};
    case Unit::minute:
      return sys_seconds{minutes{ordinal}};
    case Unit::second:
      return sys_seconds{seconds{ordinal}};
    case Unit::observation:
      break;
  }
  assert(!"an observation has no place in the calendar");
  return {};
}

ComponentRange ordinalRange(Unit unit) {
  if (unit == Unit::observation) return {1, std::numeric_limits<std::uint32_t>::max()};
  return {ordinalOf(unit, kRangeStart), ordinalOf(unit, kRangeEnd)};
}

// Needs valid components; unitsOf(unit) says what they are.
sys_seconds startOfComponents(Unit unit, std::span<const std::int64_t> components) {
  const std::int64_t years = components[0];
  if (unit == Unit::week) return firstMonday(years) + days{7 * (components[1] - 1)};
  const std::int64_t monthsPerComponent = unit == Unit::quarter ? 3 : 1;
  const std::int64_t months = components.size() > 1 ? (components[1] - 1) * monthsPerComponent : 0;
  sys_seconds time = monthStart((years - kEpochYear) * 12 + months);
  if (components.size() > 2) time += days{components[2] - 1};
  if (components.size() > 3) time += hours{components[3]};
  if (components.size() > 4) time += minutes{components[4]};
  if (components.size() > 5) time += seconds{components[5]};
  return time;
}

std::vector<std::int64_t> weekComponents(sys_days monday) {
  const std::int64_t isoYear = int{year_month_day{monday + days{3}}.year()};
  return {isoYear, (monday - firstMonday(isoYear)).count() / 7 + 1};
}

std::int64_t componentAt(Unit unit, sys_seconds time) {
  const sys_days day = floor<days>(time);
  const year_month_day date{day};
  const hh_mm_ss<seconds> clock{time - day};
  switch (unit) {
    case Unit::year:
      return int{date.year()};
    case Unit::quarter:
      return (unsigned{date.month()} + 2) / 3;
    case Unit::month:
      return unsigned{date.month()};
    case Unit::day:
      return unsigned{date.day()};
    case Unit::hour:
      return clock.hours().count();
    case Unit::minute:
      return clock.minutes().count();
    case Unit::second:
      return clock.seconds().count();
    case Unit::week:
    case Unit::observation:
      break;
  }
  assert(!"weeks are named together with their own year, observations by their number");
  return 0;
}

}  // namespace

std::string_view unitName(Unit unit) {
  return kUnitNames[static_cast<std::size_t>(unit) - 2];
}

std::optional<Unit> unitFromName(std::string_view name) {
  const auto found = std::find(kUnitNames.begin(), kUnitNames.end(), name);
  if (found == kUnitNames.end()) return std::nullopt;
  return unitFromCode(static_cast<int>(found - kUnitNames.begin()) + 2);
}

std::optional<Unit> unitFromCode(int code) {
  if (code < static_cast<int>(Unit::year) || code > static_cast<int>(Unit::observation)) return std::nullopt;
  return static_cast<Unit>(code);
}

std::span<const Unit> unitsOf(Unit finest) {
  if (finest == Unit::quarter) return kQuarterUnits;
  if (finest == Unit::week) return kWeekUnits;
  if (finest == Unit::observation) return kObservationUnits;
  const auto end = std::find(kCalendarUnits.begin(), kCalendarUnits.end(), finest) + 1;
  return {kCalendarUnits.begin(), end};
}

int cycleLength(Unit unit) {
  switch (unit) {
    case Unit::quarter:
      return 4;
    case Unit::month:
      return 12;
    case Unit::week:
      return 52;
    case Unit::hour:
      return 24;
    case Unit::minute:
    case Unit::second:
      return 60;
    case Unit::year:
    case Unit::day:
    case Unit::observation:
      break;
  }
  return 0;
}

ComponentRange componentRange(Unit unit, std::span<const std::int64_t> coarser) {
  switch (unit) {
    case Unit::year:
      return {1, kLastYear};
    case Unit::quarter:
    case Unit::month:
      return {1, cycleLength(unit)};
    case Unit::week:
      return {1, (firstMonday(coarser[0] + 1) - firstMonday(coarser[0])).count() / 7};
    case Unit::day: {
      const std::int64_t month = (coarser[0] - kEpochYear) * 12 + coarser[1] - 1;
      return {1, (monthStart(month + 1) - monthStart(month)).count()};
    }
    case Unit::hour:
    case Unit::minute:
    case Unit::second:
      return {0, cycleLength(unit) - 1};
    case Unit::observation:
      break;
  }
  return ordinalRange(Unit::observation);
}

std::optional<Period> Period::of(Unit unit, std::span<const std::int64_t> components) {
  const std::span<const Unit> units = unitsOf(unit);
  if (components.size() != units.size()) return std::nullopt;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const ComponentRange range = componentRange(units[i], components.first(i));
    if (components[i] < range.first || components[i] > range.last) return std::nullopt;
  }
  if (unit == Unit::observation) return Period(unit, components[0]);
  return Period(unit, ordinalOf(unit, startOfComponents(unit, components)));
}

std::optional<Period> Period::containing(Unit unit, Instant instant) {
  const sys_seconds time = floor<seconds>(instant);
  if (time < kRangeStart || time > kRangeEnd) return std::nullopt;
  return Period(unit, ordinalOf(unit, time));
}

std::vector<std::int64_t> Period::components() const {
  if (unit_ == Unit::observation) return {ordinal_};
  const sys_seconds start = startOf(unit_, ordinal_);
  if (unit_ == Unit::week) return weekComponents(floor<days>(start));
  std::vector<std::int64_t> result;
  for (const Unit unit : unitsOf(unit_)) result.push_back(componentAt(unit, start));
  return result;
}

std::optional<Period> Period::shifted(std::int64_t count) const {
  const ComponentRange range = ordinalRange(unit_);
  if (count > range.last - ordinal_ || count < range.first - ordinal_) return std::nullopt;
  return Period(unit_, ordinal_ + count);
}

}  // namespace workbench
