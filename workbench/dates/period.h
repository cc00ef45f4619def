// Periods of time, in nine units, as numbers that cases can be counted with.
//
// Calendar: proleptic Gregorian, without time zones and leap seconds. Weeks are those of ISO 8601: Monday comes first,
// week 1 holds 4 January, a week belongs to the year of its Thursday.
// Epoch: the period that holds 1970-01-01 00:00 has ordinal 0 in every calendar unit, the next one 1. The ordinal of an
// observation is its number.
// Anchors: 1959Q1 is quarter -44; 2000-02-29 is day 11016.
// Range: years 1 to 9999 (their labels sort as text); observations 1 to 4294967295.

#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// The values are the codes that a dataset's time-series settings use.
enum class Unit : int { year = 2, quarter, month, week, day, hour, minute, second, observation };

using Instant = std::chrono::sys_time<std::chrono::microseconds>;

std::string_view unitName(Unit unit);  // "year" .. "observation"
std::optional<Unit> unitFromName(std::string_view name);
std::optional<Unit> unitFromCode(int code);

// The units whose components name a period of the finest unit, coarsest first: a day has a year, a month and a day.
std::span<const Unit> unitsOf(Unit finest);

// How many periods of the unit the next coarser one has, as far as that is settled: week 52, day 0 (none), year 0.
int cycleLength(Unit unit);

struct ComponentRange {
  std::int64_t first;
  std::int64_t last;
};

// The values that a component may take below valid coarser components: day has 1 to 29 below {2000, 2}.
ComponentRange componentRange(Unit unit, std::span<const std::int64_t> coarser);

// One period; always within the range.
class Period {
 public:
  // One component for each of unitsOf(unit); nothing when they name no period (wrong count, month 13, 30 February).
  static std::optional<Period> of(Unit unit, std::span<const std::int64_t> components);
  // The period of a calendar unit in which the instant falls; nothing outside the range.
  static std::optional<Period> containing(Unit unit, Instant instant);

  Unit unit() const { return unit_; }
  std::int64_t ordinal() const { return ordinal_; }
  std::vector<std::int64_t> components() const;
  // The period `count` units later (earlier when negative); nothing outside the range.
  std::optional<Period> shifted(std::int64_t count) const;

  friend bool operator==(const Period&, const Period&) = default;

 private:
  Period(Unit unit, std::int64_t ordinal) : unit_(unit), ordinal_(ordinal) {}

  Unit unit_;
  std::int64_t ordinal_;
};

}  // namespace workbench
