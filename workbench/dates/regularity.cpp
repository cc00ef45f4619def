#include "workbench/dates/regularity.h"

#include <algorithm>
#include <cassert>

#include "workbench/base/errors.h"
#include "workbench/dates/holidays.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

const char* const kSort = "Give --sort (in a job file, under [dates]: sort = true).";
const char* const kFill =
    "Give --fill-gaps (in a job file, under [dates]: fill_gaps = true) to keep what is missing as rows without values";

const char* const kHolidays =
    "If such days are holidays, give --holidays gaps (in a job file, under [dates]: holidays = [\"gaps\"]); the rows "
    "then simply follow one another.";

std::string missingPeriods(const CaseCalendar& calendar, const Period& before, const Period& after) {
  const std::string first = periodLabel(*calendar.from(before).period(1));
  const std::string last = periodLabel(*calendar.from(after).period(-1));
  return first == last ? first + " is missing" : first + " to " + last + " are missing";
}

std::string remedyForMissing(const CaseCalendar& calendar, std::int64_t distance) {
  if (!calendar.businessDays || distance - 1 > kLongestHoliday) return kFill;
  return std::string(kHolidays) + " " + kFill;
}

bool descends(const std::vector<Period>& periods) {
  return std::ranges::is_sorted(periods, std::ranges::greater_equal{}, &Period::ordinal);
}

// What is wrong between a row and its predecessor, and what the user can do about it.
std::string describeFault(const std::vector<Period>& periods, std::size_t row, const CaseCalendar& calendar) {
  const Period& before = periods[row - 1];
  const std::int64_t distance = periods[row].ordinal() - before.ordinal();
  const std::string unit(unitName(before.unit()));
  if (distance < 0) {
    return (descends(periods) ? std::string("the rows run from the last date to the first. ")
                              : std::string("it is earlier, the rows are not sorted. ")) +
           kSort;
  }
  if (distance == 0) {
    return "it is the same " + unit + ". Keep one row for each " + unit +
           ": aggregate in the query with GROUP BY, or select one series with WHERE.";
  }
  const std::string otherwise = ", or number the cases instead: --start observation=1 (start = { observation = 1 }).";
  if (const auto missing = casesBetween(calendar, before, periods[row])) {
    return missingPeriods(calendar, before, periods[row]) + ". " + remedyForMissing(calendar, *missing) + otherwise;
  }
  return "it comes " + countOf(distance, before.unit()) + " later, where " + countOf(calendar.step, before.unit()) +
         " is the most common distance. Aggregate to a coarser frequency in the query" + otherwise;
}

}  // namespace

Spacing commonSpacing(std::span<const std::int64_t> ascending) {
  assert(ascending.size() >= 2);
  std::vector<std::int64_t> distances;
  for (std::size_t i = 1; i < ascending.size(); ++i) distances.push_back(ascending[i] - ascending[i - 1]);
  std::ranges::sort(distances);
  Spacing best;
  for (auto run = distances.cbegin(); run != distances.cend();) {
    const auto end = std::upper_bound(run, distances.cend(), *run);
    const double share = static_cast<double>(end - run) / static_cast<double>(distances.size());
    if (share > best.share) best = {*run, share};
    run = end;
  }
  return best;
}

std::optional<std::int64_t> casesBetween(const CaseCalendar& calendar, const Period& from, const Period& to) {
  const CaseCalendar counted = calendar.from(from);
  const std::int64_t cases = counted.caseOffset(to);
  const std::optional<Period> there = counted.period(cases);
  return there == to ? std::optional(cases) : std::nullopt;
}

void requireEvenlySpaced(const std::vector<Period>& periods, const CaseCalendar& calendar, const DateSource& source) {
  for (std::size_t row = 1; row < periods.size(); ++row) {
    if (casesBetween(calendar, periods[row - 1], periods[row]) == 1) continue;
    throw DataError(source.name + ": row " + std::to_string(row + 1) + " (" + source.dateOf(row) +
                    ") does not follow row " + std::to_string(row) + " (" + source.dateOf(row - 1) +
                    "): " + describeFault(periods, row, calendar));
  }
}

}  // namespace workbench
