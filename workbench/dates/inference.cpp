#include "workbench/dates/inference.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "workbench/dates/regularity.h"

namespace workbench {

namespace {

struct UnitLength {
  Unit unit;
  double seconds;  // of the mean period
};

constexpr double kDay = 86400.0;
constexpr double kYear = 365.2425 * kDay;
constexpr std::array<UnitLength, 8> kCoarsestFirst{{{Unit::year, kYear},
                                                    {Unit::quarter, kYear / 4},
                                                    {Unit::month, kYear / 12},
                                                    {Unit::week, 7 * kDay},
                                                    {Unit::day, kDay},
                                                    {Unit::hour, 3600.0},
                                                    {Unit::minute, 60.0},
                                                    {Unit::second, 1.0}}};

// Two neighbours can lie in neighbouring years and still be one day apart: a unit counts only when the median distance
// in time is near its length. Periods differ in length by up to a tenth, days within them may move a little.
constexpr double kLengthTolerance = 0.2;

std::vector<std::int64_t> ordinalsIn(Unit unit, const std::vector<std::int64_t>& instants) {
  std::vector<std::int64_t> ordinals;
  ordinals.reserve(instants.size());
  for (const std::int64_t microseconds : instants) {
    ordinals.push_back(Period::containing(unit, Instant{std::chrono::microseconds{microseconds}})->ordinal());
  }
  return ordinals;
}

double medianDistanceSeconds(const std::vector<std::int64_t>& ascending) {
  std::vector<std::int64_t> distances;
  for (std::size_t i = 1; i < ascending.size(); ++i) distances.push_back(ascending[i] - ascending[i - 1]);
  const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
  std::nth_element(distances.begin(), middle, distances.end());
  return static_cast<double>(*middle) * 1e-6;
}

bool allAtMidnight(const std::vector<std::int64_t>& instants) {
  return std::ranges::all_of(instants, [](std::int64_t us) { return us % (std::int64_t{86400} * 1'000'000) == 0; });
}

}  // namespace

Frequency inferFrequency(std::vector<std::int64_t> instants) {
  std::ranges::sort(instants);
  instants.erase(std::unique(instants.begin(), instants.end()), instants.end());
  const Unit lastResort = allAtMidnight(instants) ? Unit::day : Unit::second;
  if (instants.size() < 2) return {lastResort, 1};

  const double median = medianDistanceSeconds(instants);
  Frequency best{lastResort, std::max<std::int64_t>(1, commonSpacing(ordinalsIn(lastResort, instants)).step)};
  double bestShare = 0.5;
  for (const auto& [unit, seconds] : kCoarsestFirst) {
    const Spacing spacing = commonSpacing(ordinalsIn(unit, instants));
    const double length = static_cast<double>(spacing.step) * seconds;
    if (spacing.share <= bestShare || std::abs(median - length) > kLengthTolerance * length) continue;
    best = {unit, spacing.step};
    bestShare = spacing.share;
  }
  best.businessDays = best.unit == Unit::day && passOverWeekends(ordinalsIn(Unit::day, instants));
  return best.businessDays ? Frequency{Unit::day, 1, true} : best;
}

bool passOverWeekends(const std::vector<std::int64_t>& days) {
  constexpr std::size_t kFewest = 5;
  const bool noneOnWeekend =
      std::ranges::all_of(days, [](std::int64_t day) { return dayOfBusinessDay(businessDayOrdinal(day)) == day; });
  if (days.size() < kFewest || !noneOnWeekend) return false;
  std::size_t passed = 0;
  std::size_t followed = 0;
  for (std::size_t i = 1; i < days.size(); ++i) {
    const bool next = businessDayOrdinal(days[i]) - businessDayOrdinal(days[i - 1]) == 1;
    if (!next) continue;
    ++followed;
    if (days[i] - days[i - 1] > 1) ++passed;
  }
  return passed > 0 && 2 * followed >= days.size();
}

}  // namespace workbench
