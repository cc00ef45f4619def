#include "workbench/dates/regularity.h"

#include <algorithm>
#include <cassert>

#include "workbench/base/errors.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

bool isWeekend(const Period& day) {
  const std::chrono::sys_days date{std::chrono::days{day.ordinal()}};
  return std::chrono::weekday{date}.iso_encoding() > 5;
}

bool leavesWeekendsOut(const std::vector<Period>& periods) {
  return periods.front().unit() == Unit::day && periods.size() >= 5 && std::ranges::none_of(periods, isWeekend);
}

std::string missingPeriods(const Period& before, const Period& after, std::int64_t step) {
  const std::string first = periodLabel(*before.shifted(step));
  const std::string last = periodLabel(*after.shifted(-step));
  return first == last ? first + " is missing" : first + " to " + last + " are missing";
}

// What is wrong between a row and its predecessor, and what the user can do about it.
std::string describeFault(const std::vector<Period>& periods, std::size_t row, std::int64_t step,
                          const DateSource& source) {
  const Period& before = periods[row - 1];
  const std::int64_t distance = periods[row].ordinal() - before.ordinal();
  const std::string unit(unitName(before.unit()));
  if (distance < 0) return "it is earlier. Sort the rows in the query: ORDER BY " + source.order + ".";
  if (distance == 0) {
    return "it is the same " + unit + ". Keep one row for each " + unit +
           ": aggregate in the query with GROUP BY, or select one series with WHERE.";
  }
  const std::string otherwise =
      ", aggregate to a coarser frequency, or number the cases instead: start = { observation = 1 }.";
  if (leavesWeekendsOut(periods)) {
    return "the dates leave weekends out, and the calendar has no business days. Fill in the missing days in the "
           "query" +
           otherwise;
  }
  const std::string remedy = " Fill in the missing rows in the query" + otherwise;
  if (distance % step == 0) return missingPeriods(before, periods[row], step) + "." + remedy;
  return "it comes " + countOf(distance, before.unit()) + " later, where " + countOf(step, before.unit()) +
         " is the most common distance." + remedy;
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

void requireEvenlySpaced(const std::vector<Period>& periods, std::int64_t step, const DateSource& source) {
  for (std::size_t row = 1; row < periods.size(); ++row) {
    if (periods[row].ordinal() - periods[row - 1].ordinal() == step) continue;
    throw DataError(source.name + ": row " + std::to_string(row + 1) + " (" + source.dateOf(row) +
                    ") does not follow row " + std::to_string(row) + " (" + source.dateOf(row - 1) +
                    "): " + describeFault(periods, row, step, source));
  }
}

}  // namespace workbench
