#include "workbench/dates/date_setup.h"

#include <algorithm>

#include "workbench/base/errors.h"
#include "workbench/dates/components.h"
#include "workbench/dates/date_variables.h"
#include "workbench/dates/inference.h"
#include "workbench/dates/labels.h"
#include "workbench/dates/regularity.h"

namespace workbench {

namespace {

int columnOfKind(const Dataset& dataset, const std::string& name, ColumnKind kind, const std::string& remedy) {
  const int index = dataset.find(name);
  if (index < 0) throw UsageError("dates: there is no column \"" + name + "\" in " + dataset.origin + ".");
  if (dataset.columns[static_cast<std::size_t>(index)].kind != kind) {
    throw UsageError("dates: column \"" + name + "\" " + remedy);
  }
  return index;
}

CaseCalendar calendarFromStart(const Dataset& dataset, const DateComponents& start) {
  const Period first = periodFromRequest(start, start.rbegin()->first, "start");
  if (!first.shifted(static_cast<std::int64_t>(dataset.rowCount) - 1)) {
    throw UsageError("start: counted from " + periodLabel(first) + ", the last of " + std::to_string(dataset.rowCount) +
                     " cases would lie after the calendar's end (year 9999).");
  }
  return {first, 1};
}

std::string rowDate(std::int64_t instant) {
  return instant == kMissingInstant ? "no date" : instantText(instant);
}

// Every row must hold an instant within the calendar's range.
void requireInstants(const std::vector<std::int64_t>& instants, const DateSource& source) {
  for (std::size_t row = 0; row < instants.size(); ++row) {
    const bool isMissing = instants[row] == kMissingInstant;
    if (!isMissing && Period::containing(Unit::day, Instant{std::chrono::microseconds{instants[row]}})) continue;
    const std::string before = row > 0 ? " after row " + std::to_string(row) + " (" + source.dateOf(row - 1) + ")" : "";
    throw DataError(source.name + ": row " + std::to_string(row + 1) + before +
                    (isMissing ? " has no date. Fill it in, or leave such rows out in the query: WHERE " +
                                     source.order + " IS NOT NULL."
                               : " has a date outside the years 1 to 9999. Correct it in the query."));
  }
}

CaseCalendar calendarFromColumn(const Dataset& dataset, const std::string& name) {
  const int index = columnOfKind(dataset, name, ColumnKind::instant,
                                 "is not a DATE or TIMESTAMP column. Convert it in the query, for instance CAST(" +
                                     name + " AS DATE), or name numeric columns: variables = { year = \"...\", ... }.");
  const Column& column = dataset.columns[static_cast<std::size_t>(index)];
  const std::vector<std::int64_t>& instants = column.instants;
  const DateSource source{"column \"" + column.name + "\"", "\"" + column.name + "\"",
                          [&](std::size_t row) { return rowDate(instants[row]); }};
  requireInstants(instants, source);
  if (instants.size() < 2) {
    throw DataError(source.name + ": one row does not tell the frequency. Name the first case's date instead: " +
                    "start = { year = ..., quarter = ... }.");
  }
  const Frequency frequency = inferFrequency(instants);
  std::vector<Period> periods;
  for (const std::int64_t instant : instants) {
    periods.push_back(*Period::containing(frequency.unit, Instant{std::chrono::microseconds{instant}}));
  }
  requireEvenlySpaced(periods, frequency.step, source);
  return {periods.front(), frequency.step};
}

DateColumns columnsOf(const Dataset& dataset, const std::map<Unit, std::string>& variables) {
  DateColumns columns{variables.rbegin()->first, {}};
  std::vector<Unit> given;
  for (const auto& [unit, name] : variables) {
    given.push_back(unit);
    columns.columns.push_back(
        columnOfKind(dataset, name, ColumnKind::number,
                     "is not numeric. Convert it in the query, for instance CAST(" + name + " AS INTEGER)."));
  }
  requireUnits(given, columns.finest, "variables");
  return columns;
}

DateSource sourceOf(const Dataset& dataset, const DateColumns& columns, const std::vector<Period>& periods) {
  std::string names;
  for (const int index : columns.columns) {
    names += (names.empty() ? "\"" : ", \"") + dataset.columns[static_cast<std::size_t>(index)].name + "\"";
  }
  return {(columns.columns.size() == 1 ? "column " : "columns ") + names, names,
          [&periods](std::size_t row) { return periodLabel(periods[row]); }};
}

CaseCalendar calendarFromColumns(const Dataset& dataset, const DateColumns& columns) {
  std::vector<Period> periods;
  const DateSource source = sourceOf(dataset, columns, periods);
  std::vector<std::int64_t> ordinals;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    const std::optional<Period> period = columns.period(dataset, row);
    if (!period) {
      const std::string before =
          row > 0 ? " after row " + std::to_string(row) + " (" + source.dateOf(row - 1) + ")" : "";
      throw DataError(source.name + ": row " + std::to_string(row + 1) + before + " holds no date: " +
                      columns.fault(dataset, row) + ". Correct it, or leave such rows out in the query.");
    }
    periods.push_back(*period);
    ordinals.push_back(period->ordinal());
  }
  std::ranges::sort(ordinals);
  ordinals.erase(std::unique(ordinals.begin(), ordinals.end()), ordinals.end());
  const std::int64_t step = ordinals.size() > 1 ? commonSpacing(ordinals).step : 1;
  requireEvenlySpaced(periods, step, source);
  return {periods.front(), step};
}

}  // namespace

void defineDates(Dataset& dataset, const DatesRequest& request, TrendsSettings& settings) {
  if (int{!request.start.empty()} + int{!request.column.empty()} + int{!request.variables.empty()} != 1) {
    throw UsageError("dates: give exactly one of start, column and variables.");
  }
  if (dataset.rowCount == 0) throw DataError("dates: " + dataset.origin + " has no rows to date.");
  if (!request.variables.empty()) {
    const DateColumns columns = columnsOf(dataset, request.variables);
    makeDateLabels(dataset, calendarFromColumns(dataset, columns));
    settings.dateVariables = dateVariablesOf(columns.finest, columns.columns);
    return;
  }
  const CaseCalendar calendar =
      request.column.empty() ? calendarFromStart(dataset, request.start) : calendarFromColumn(dataset, request.column);
  settings.dateVariables = makeDateVariables(dataset, calendar);
  makeDateLabels(dataset, calendar);
}

}  // namespace workbench
