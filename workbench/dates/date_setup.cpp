#include "workbench/dates/date_setup.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/dataset/rows.h"
#include "workbench/dates/components.h"
#include "workbench/dates/date_variables.h"
#include "workbench/dates/dated_rows.h"
#include "workbench/dates/holidays.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

CaseCalendar calendarFromStart(const Dataset& dataset, const DateComponents& start) {
  const Period first = periodFromRequest(start, start.rbegin()->first, "start");
  if (!first.shifted(static_cast<std::int64_t>(dataset.rowCount) - 1)) {
    throw UsageError(
        "dates.beyond-calendar",
        "start: counted from ^1, the last of ^2 cases would lie after the calendar's end (year 9999). Give "
        "an earlier start, or a finer unit.",
        periodLabel(first), dataset.rowCount);
  }
  return {first, 1, false};
}

DatedRows datesOf(const Dataset& dataset, const DatesRequest& request) {
  DatedRows dated = request.variables.empty() ? datedByColumn(dataset, request.column, request.exchangesDayAndMonth)
                                              : datedByComponents(dataset, request.variables);
  if (request.holidays.empty()) return dated;
  if (!dated.frequency.businessDays) {
    throw UsageError(
        "dates.no-business-days",
        "holidays: the rows are no business days (^1), so that no day can be a holiday. Leave the holidays "
        "out.",
        dated.source.name);
  }
  dated.holidays = holidaysFrom(request.holidays, dated.periods);
  return dated;
}

void sortRows(Dataset& dataset, const std::vector<Period>& periods) {
  std::vector<std::size_t> rows(dataset.rowCount);
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  std::ranges::stable_sort(rows, {}, [&](std::size_t row) { return periods[row].ordinal(); });
  takeRows(dataset, rows);
}

// The rows with an empty one for each missing period. Rows that do not follow in any other way stay for the check.
std::vector<std::size_t> rowsWithGaps(const DatedRows& dated) {
  const CaseCalendar calendar = dated.calendar();
  std::vector<std::size_t> rows{0};
  for (std::size_t row = 1; row < dated.periods.size(); ++row) {
    const std::int64_t distance = casesBetween(calendar, dated.periods[row - 1], dated.periods[row]).value_or(1);
    if (distance > static_cast<std::int64_t>(dated.periods.size())) {
      throw DataError(
          "dates.wide-gap",
          "^1: between row ^2 (^3) and row ^4 (^5) more periods are missing than there are rows. Correct the "
          "dates.",
          dated.source.name, row, dated.source.dateOf(row - 1), row + 1, dated.source.dateOf(row));
    }
    for (std::int64_t missing = 1; missing < distance; ++missing) rows.push_back(kEmptyRow);
    rows.push_back(row);
  }
  return rows;
}

std::vector<Period> periodsOf(const DatedRows& dated, const std::vector<std::size_t>& rows) {
  const CaseCalendar calendar = dated.calendar();
  std::vector<Period> periods;
  for (const std::size_t row : rows) {
    periods.push_back(row == kEmptyRow ? *calendar.from(periods.back()).period(1) : dated.periods[row]);
  }
  return periods;
}

void fillComponents(Dataset& dataset, const std::vector<int>& columns, const std::vector<Period>& periods) {
  for (std::size_t row = 0; row < periods.size(); ++row) {
    const std::vector<std::int64_t> parts = periods[row].components();
    for (std::size_t i = 0; i < columns.size(); ++i) {
      dataset.columns[static_cast<std::size_t>(columns[i])].numbers[row] = static_cast<double>(parts[i]);
    }
  }
}

void fillGaps(Dataset& dataset, const DatesRequest& request, const DatedRows& dated) {
  const std::vector<std::size_t> rows = rowsWithGaps(dated);
  const std::vector<Period> periods = periodsOf(dated, rows);
  requireEvenlySpaced(periods, dated.calendar(), {dated.source.name, dated.source.order, [&periods](std::size_t row) {
                                                    return periodLabel(periods[row]);
                                                  }});
  takeRows(dataset, rows);
  if (!request.variables.empty()) fillComponents(dataset, componentColumns(dataset, request.variables), periods);
}

// The calendar of dated rows, which are put in order and completed first, as far as that was asked for.
CaseCalendar calendarOfRows(Dataset& dataset, const DatesRequest& request, TrendsSettings& settings) {
  if (request.sort) sortRows(dataset, datesOf(dataset, request).periods);
  const DatedRows dated = datesOf(dataset, request);
  const CaseCalendar calendar = dated.calendar();
  settings.reading = dated.reading;
  if (request.fillGaps) {
    fillGaps(dataset, request, dated);
  } else {
    requireEvenlySpaced(dated.periods, calendar, dated.source);
  }
  return calendar;
}

void dateRows(Dataset& dataset, const DatesRequest& request, TrendsSettings& settings) {
  const CaseCalendar calendar =
      request.start.empty() ? calendarOfRows(dataset, request, settings) : calendarFromStart(dataset, request.start);
  if (request.variables.empty()) {
    settings.dateVariables = makeDateVariables(dataset, calendar);
  } else {
    settings.dateVariables =
        dateVariablesOf(request.variables.rbegin()->first, componentColumns(dataset, request.variables));
  }
  settings.businessDays = calendar.businessDays;
  settings.holidays = calendar.holidays;
  makeDateLabels(dataset, calendar);
}

}  // namespace

void defineDates(Dataset& dataset, const DatesRequest& request, TrendsSettings& settings) {
  if (int{!request.start.empty()} + int{!request.column.empty()} + int{!request.variables.empty()} != 1) {
    throw UsageError("dates.one-way", "dates: give exactly one of start, column and variables.");
  }
  if (!request.start.empty() && (request.sort || request.fillGaps || !request.holidays.empty())) {
    throw UsageError("dates.start-sorts-nothing",
                     "dates: 'start' counts the rows as they stand; sort, fill_gaps and holidays need dates to go by. "
                     "Name the column that holds them.");
  }
  if (dataset.rowCount == 0)
    throw DataError("dates.no-rows", "dates: ^1 has no rows to date. Give a file or a query with rows.",
                    dataset.origin);
  if (!request.sort && !request.fillGaps) return dateRows(dataset, request, settings);
  Dataset changed = dataset;
  dateRows(changed, request, settings);
  dataset = std::move(changed);
}

}  // namespace workbench
