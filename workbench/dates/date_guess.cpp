#include "workbench/dates/date_guess.h"

#include <optional>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/dates/dated_rows.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

bool isNumeric(const Dataset& dataset, std::string_view name) {
  const int index = dataset.find(name);
  return index >= 0 && dataset.columns[static_cast<std::size_t>(index)].kind == ColumnKind::number;
}

// Columns that are named as the units of a date are: with year and quarter those two.
std::optional<DatesRequest> namedComponents(const Dataset& dataset) {
  for (const Unit finest : {Unit::day, Unit::month, Unit::quarter, Unit::week}) {
    DatesRequest request;
    for (const Unit unit : unitsOf(finest)) {
      if (!isNumeric(dataset, unitName(unit))) break;
      request.variables[unit] = dataset.columns[static_cast<std::size_t>(dataset.find(unitName(unit)))].name;
    }
    if (request.variables.size() == unitsOf(finest).size()) return request;
  }
  return std::nullopt;
}

DatedRows datesOf(const Dataset& dataset, const DatesRequest& request) {
  return request.variables.empty() ? datedByColumn(dataset, request.column)
                                   : datedByComponents(dataset, request.variables);
}

// Nothing when the column holds no dates at all.
std::optional<DateGuess> guess(const Dataset& dataset, DatesRequest request) {
  DateGuess guess;
  guess.request = std::move(request);
  try {
    const DatedRows dated = datesOf(dataset, guess.request);
    guess.unit = dated.frequency.unit;
    guess.step = dated.frequency.step;
    guess.businessDays = dated.frequency.businessDays;
    guess.first = periodLabel(dated.periods.front());
    guess.last = periodLabel(dated.periods.back());
    requireEvenlySpaced(dated.periods, dated.calendar(), dated.source);
  } catch (const UsageError&) {
    return std::nullopt;
  } catch (const DataError& error) {
    guess.fault = error.notice();
  }
  return guess;
}

// A number that repeats or jumps is a measurement that happens to look like a year.
bool canBeChance(const Column& column, const DateGuess& guess) {
  return column.kind == ColumnKind::number && !guess.fault.empty();
}

}  // namespace

std::vector<DateGuess> guessDates(const Dataset& dataset) {
  std::vector<DateGuess> guesses;
  if (auto request = namedComponents(dataset)) {
    if (auto found = guess(dataset, std::move(*request))) guesses.push_back(std::move(*found));
  }
  for (const Column& column : dataset.columns) {
    DatesRequest request;
    request.column = column.name;
    auto found = guess(dataset, std::move(request));
    if (found && !canBeChance(column, *found)) guesses.push_back(std::move(*found));
  }
  return guesses;
}

}  // namespace workbench
