#include "workbench/dates/dated_rows.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/number_text.h"
#include "workbench/dates/components.h"
#include "workbench/dates/date_text.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

constexpr std::int64_t kDay = std::int64_t{86'400} * 1'000'000;

int columnNamed(const Dataset& dataset, const std::string& name) {
  const int index = dataset.find(name);
  if (index >= 0) return index;
  std::vector<std::string> names;
  for (const Column& column : dataset.columns) names.push_back(column.name);
  throw UsageError("dates: there is no column \"" + name + "\" in " + dataset.origin + "." + didYouMean(name, names));
}

std::string rowName(const DateSource& source, std::size_t row) {
  const std::string before = row > 0 ? " after row " + std::to_string(row) + " (" + source.dateOf(row - 1) + ")" : "";
  return source.name + ": row " + std::to_string(row + 1) + before;
}

DataError noDate(const DateSource& source, std::size_t row) {
  return DataError(rowName(source, row) + " has no date. Fill it in, or leave such rows out in the query: WHERE " +
                   source.order + " IS NOT NULL.");
}

std::string rowDate(std::int64_t instant) {
  return instant == kMissingInstant ? "no date" : instantText(instant);
}

// Every row must hold an instant within the calendar's range.
void requireInstants(const std::vector<std::int64_t>& instants, const DateSource& source) {
  for (std::size_t row = 0; row < instants.size(); ++row) {
    if (instants[row] == kMissingInstant) throw noDate(source, row);
    if (Period::containing(Unit::day, Instant{std::chrono::microseconds{instants[row]}})) continue;
    throw DataError(rowName(source, row) + " has a date outside the years 1 to 9999. Correct it in the query.");
  }
}

struct Dated {
  std::vector<Period> periods;
  Frequency frequency;

  // As the rows stand, or once they are sorted.
  bool isEven() const {
    std::vector<Period> sorted = periods;
    std::ranges::sort(sorted, {}, &Period::ordinal);
    const CaseCalendar calendar{sorted.front(), frequency.step, frequency.businessDays};
    for (std::size_t row = 1; row < sorted.size(); ++row) {
      if (casesBetween(calendar, sorted[row - 1], sorted[row]) != 1) return false;
    }
    return true;
  }
};

Dated datedInstants(const std::vector<std::int64_t>& instants) {
  Dated dated{{}, inferFrequency(instants)};
  for (const std::int64_t instant : instants) {
    dated.periods.push_back(*Period::containing(dated.frequency.unit, Instant{std::chrono::microseconds{instant}}));
  }
  return dated;
}

// Their frequency is the common distance.
Dated spacedPeriods(std::vector<Period> periods) {
  std::vector<std::int64_t> ordinals;
  for (const Period& period : periods) ordinals.push_back(period.ordinal());
  std::ranges::sort(ordinals);
  ordinals.erase(std::unique(ordinals.begin(), ordinals.end()), ordinals.end());
  const std::int64_t step = ordinals.size() > 1 ? commonSpacing(ordinals).step : 1;
  const Unit unit = periods.front().unit();
  return {std::move(periods), {unit, step, false}};
}

// Days tell their frequency as instants do.
Dated datedPeriods(std::vector<Period> periods) {
  if (periods.front().unit() == Unit::day) {
    std::vector<std::int64_t> instants;
    for (const Period& day : periods) instants.push_back(day.ordinal() * kDay);
    return datedInstants(instants);
  }
  return spacedPeriods(std::move(periods));
}

// Nothing where one of the days is no month.
std::optional<std::vector<std::int64_t>> exchangedDaysAndMonths(const std::vector<std::int64_t>& instants) {
  std::vector<std::int64_t> exchanged;
  for (const std::int64_t instant : instants) {
    const auto day = Period::containing(Unit::day, Instant{std::chrono::microseconds{instant}});
    const std::vector<std::int64_t> parts = day->components();
    const auto other = Period::of(Unit::day, std::vector<std::int64_t>{parts[0], parts[2], parts[1]});
    if (!other || instant % kDay != 0) return std::nullopt;
    exchanged.push_back(other->ordinal() * kDay);
  }
  return exchanged;
}

Dated byInstants(const Column& column, const DateSource& source) {
  requireInstants(column.instants, source);
  Dated dated = datedInstants(column.instants);
  if (dated.isEven()) return dated;
  if (const auto exchanged = exchangedDaysAndMonths(column.instants)) {
    Dated other = datedInstants(*exchanged);
    if (other.isEven()) return other;
  }
  return dated;
}

UsageError holdsNoDates(const DateSource& source, const std::string& example) {
  return UsageError("dates: " + source.name + " holds no dates (" + example +
                    "). Name the first case's date instead, such as --start year=1959 quarter=1 (in a job file, under "
                    "[dates]: start = { year = 1959, quarter = 1 }).");
}

Dated byTexts(const Column& column, const DateSource& source) {
  const std::vector<std::string>& texts = column.texts;
  const std::vector<DateForm> forms = formsOf(texts);
  if (forms.empty()) {
    const std::optional<OddText> odd = oddText(texts);
    if (!odd) throw holdsNoDates(source, "row 1: \"" + texts.front() + "\"");
    throw DataError(rowName(source, odd->row) + " holds \"" + texts[odd->row] + "\", which is no date like \"" +
                    texts[odd->like] + "\". Correct it, or leave the row out in the query.");
  }
  const auto empty = std::ranges::find(texts, "");
  if (empty != texts.end()) throw noDate(source, static_cast<std::size_t>(empty - texts.begin()));
  std::optional<Dated> first;
  for (const DateForm form : forms) {
    std::vector<Period> periods;
    for (const std::string& text : texts) periods.push_back(*readPeriod(text, form));
    Dated dated = datedPeriods(std::move(periods));
    if (dated.isEven()) return dated;
    if (!first) first = std::move(dated);
  }
  return *first;
}

Dated byNumbers(const Column& column, const DateSource& source) {
  const auto missing = std::ranges::find(column.numbers, kSystemMissing);
  if (missing != column.numbers.end()) {
    throw noDate(source, static_cast<std::size_t>(missing - column.numbers.begin()));
  }
  std::vector<Period> periods = periodsOfNumbers(column.numbers);
  if (periods.empty()) throw holdsNoDates(source, "row 1: " + source.dateOf(0));
  return datedPeriods(std::move(periods));
}

std::string dateText(const Column& column, std::size_t row) {
  if (column.kind == ColumnKind::instant) return rowDate(column.instants[row]);
  if (column.kind == ColumnKind::number) {
    return column.numbers[row] == kSystemMissing ? "no date" : numberText(column.numbers[row]);
  }
  return column.texts[row].empty() ? "no date" : column.texts[row];
}

}  // namespace

DatedRows datedByColumn(const Dataset& dataset, const std::string& name) {
  const Column& column = dataset.columns[static_cast<std::size_t>(columnNamed(dataset, name))];
  const DateSource source{"column \"" + column.name + "\"", "\"" + column.name + "\"",
                          [&column](std::size_t row) { return dateText(column, row); }};
  Dated dated = column.kind == ColumnKind::instant ? byInstants(column, source)
                : column.kind == ColumnKind::text  ? byTexts(column, source)
                                                   : byNumbers(column, source);
  if (dataset.rowCount < 2) {
    throw DataError(source.name + ": one row does not tell the frequency. Name the first case's date instead: " +
                    "start = { year = ..., quarter = ... }.");
  }
  return {std::move(dated.periods), dated.frequency, source};
}

std::vector<int> componentColumns(const Dataset& dataset, const std::map<Unit, std::string>& variables) {
  std::vector<Unit> given;
  std::vector<int> columns;
  for (const auto& [unit, name] : variables) {
    given.push_back(unit);
    columns.push_back(columnNamed(dataset, name));
    if (dataset.columns[static_cast<std::size_t>(columns.back())].kind == ColumnKind::number) continue;
    throw UsageError("dates: column \"" + name + "\" is not numeric. Convert it in the query, for instance CAST(" +
                     name + " AS INTEGER).");
  }
  requireUnits(given, variables.rbegin()->first, "variables");
  return columns;
}

DatedRows datedByComponents(const Dataset& dataset, const std::map<Unit, std::string>& variables) {
  const DateColumns columns{variables.rbegin()->first, componentColumns(dataset, variables)};
  std::string names;
  for (const int index : columns.columns) {
    names += (names.empty() ? "\"" : ", \"") + dataset.columns[static_cast<std::size_t>(index)].name + "\"";
  }
  const DateSource source{(columns.columns.size() == 1 ? "column " : "columns ") + names, names,
                          [&dataset, columns](std::size_t row) {
                            const std::optional<Period> period = columns.period(dataset, row);
                            return period ? periodLabel(*period) : "no date";
                          }};
  std::vector<Period> periods;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    const std::optional<Period> period = columns.period(dataset, row);
    if (!period) {
      throw DataError(rowName(source, row) + " holds no date: " + columns.fault(dataset, row) +
                      ". Correct it, or leave such rows out in the query.");
    }
    periods.push_back(*period);
  }
  Dated dated = datedPeriods(periods);
  // The components name the unit: years, months and days are days, however far apart.
  if (dated.frequency.unit != columns.finest) dated = spacedPeriods(std::move(periods));
  return {std::move(dated.periods), dated.frequency, source};
}

}  // namespace workbench
