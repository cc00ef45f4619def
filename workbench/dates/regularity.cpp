#include "workbench/dates/regularity.h"

#include <algorithm>
#include <cassert>

#include "workbench/base/errors.h"
#include "workbench/dates/holidays.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

Notice missingPeriods(const CaseCalendar& calendar, const Period& before, const Period& after) {
  const std::string first = periodLabel(*calendar.from(before).period(1));
  const std::string last = periodLabel(*calendar.from(after).period(-1));
  return first == last ? phrase("^1 is missing", first) : phrase("^1 to ^2 are missing", first, last);
}

bool descends(const std::vector<Period>& periods) {
  return std::ranges::is_sorted(periods, std::ranges::greater_equal{}, &Period::ordinal);
}

Notice unsorted(const std::vector<Period>& periods) {
  const Notice remedy = phrase("Give --sort (in a job file, under [dates]: sort = true).");
  if (descends(periods)) return Notice("dates.descending", "the rows run from the last date to the first.") + remedy;
  return Notice("dates.unsorted", "it is earlier, the rows are not sorted.") + remedy;
}

Notice gap(const Period& before, const Period& after, const CaseCalendar& calendar, std::int64_t distance) {
  const bool canBeHolidays = calendar.businessDays && distance - 1 <= kLongestHoliday;
  return Notice(
      "dates.gap",
      "^1.^2 Give --fill-gaps (in a job file, under [dates]: fill_gaps = true) to keep what is missing as rows "
      "without values, or number the cases instead: --start observation=1 (start = { observation = 1 }).",
      missingPeriods(calendar, before, after),
      canBeHolidays ? phrase(" If such days are holidays, give --holidays gaps (in a job file, under [dates]: "
                             "holidays = [\"gaps\"]); the rows then simply follow one another.")
                    : Notice());
}

// What is wrong between a row and its predecessor, and what the user can do about it.
Notice describeFault(const std::vector<Period>& periods, std::size_t row, const CaseCalendar& calendar) {
  const Period& before = periods[row - 1];
  const std::int64_t distance = periods[row].ordinal() - before.ordinal();
  if (distance < 0) return unsorted(periods);
  if (distance == 0) {
    return Notice("dates.twice",
                  "it is the same ^1. Keep one row for each ^1: aggregate in the query with GROUP BY, or select one "
                  "series with WHERE.",
                  unitPhrase(before.unit()));
  }
  if (const auto missing = casesBetween(calendar, before, periods[row])) {
    return gap(before, periods[row], calendar, *missing);
  }
  return Notice("dates.uneven",
                "it comes ^1 later, where ^2 is the most common distance. Aggregate to a coarser frequency in the "
                "query, or number the cases instead: --start observation=1 (start = { observation = 1 }).",
                countOf(distance, before.unit()), countOf(calendar.step, before.unit()));
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
    throw DataError(phrase("^1: row ^2 (^3) does not follow row ^4 (^5): ^6", source.name, row + 1, source.dateOf(row),
                           row, source.dateOf(row - 1), describeFault(periods, row, calendar)));
  }
}

}  // namespace workbench
