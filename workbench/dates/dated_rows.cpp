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
  throw UsageError(Notice("dates.no-column", "dates: there is no column \"^1\" in ^2.", name, dataset.origin) +
                   didYouMeanOrList(name, names, phrase("Its columns")));
}

Notice rowName(const DateSource& source, std::size_t row) {
  if (row == 0) return phrase("^1: row 1", source.name);
  return phrase("^1: row ^2 after row ^3 (^4)", source.name, row + 1, row, source.dateOf(row - 1));
}

DataError noDate(const DateSource& source, std::size_t row) {
  return DataError("dates.missing",
                   "^1 has no date. Fill it in, or leave such rows out in the query: WHERE ^2 IS NOT NULL.",
                   rowName(source, row), source.order);
}

Notice rowDate(std::int64_t instant) {
  return instant == kMissingInstant ? phrase("no date") : instantText(instant);
}

// Every row must hold an instant within the calendar's range.
void requireInstants(const std::vector<std::int64_t>& instants, const DateSource& source) {
  for (std::size_t row = 0; row < instants.size(); ++row) {
    if (instants[row] == kMissingInstant) throw noDate(source, row);
    if (Period::containing(Unit::day, Instant{std::chrono::microseconds{instants[row]}})) continue;
    throw DataError("dates.outside-calendar", "^1 has a date outside the years 1 to 9999. Correct it in the query.",
                    rowName(source, row));
  }
}

struct Dated {
  std::vector<Period> periods;
  Frequency frequency;
  Notice reading = {};

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
  Dated dated{{}, inferFrequency(instants), {}};
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
  return {std::move(periods), {unit, step, false}, {}};
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

// Told by the first row that the two orders of day and month read as different days.
Notice readingNote(const DateSource& source, const std::vector<std::int64_t>& taken,
                   const std::vector<std::int64_t>& other) {
  const auto [one, exchanged] = std::ranges::mismatch(taken, other);
  return Notice("dates.order",
                "^1: row ^2 is read as ^3; with day and month exchanged it would be ^4. To read it so, give "
                "--exchange-day-month (in a job file, under [dates]: exchange_day_month = true).",
                source.name, one - taken.begin() + 1, instantText(*one), instantText(*exchanged));
}

// `first` is the order that is taken unless only the other one gives evenly spaced dates.
Dated inOneOrder(const std::vector<std::int64_t>& first, const std::vector<std::int64_t>& second,
                 const DateSource& source, bool exchange) {
  Dated asFirst = datedInstants(first);
  if (first == second) return asFirst;
  Dated asSecond = datedInstants(second);
  const bool secondIsEven = asSecond.isEven();
  const bool takesSecond = (secondIsEven && !asFirst.isEven()) != exchange;
  Dated taken = takesSecond ? std::move(asSecond) : std::move(asFirst);
  if (secondIsEven || exchange) {
    taken.reading = takesSecond ? readingNote(source, second, first) : readingNote(source, first, second);
  }
  return taken;
}

Dated byInstants(const Column& column, const DateSource& source, bool exchange) {
  requireInstants(column.instants, source);
  const auto exchanged = exchangedDaysAndMonths(column.instants);
  return exchanged ? inOneOrder(column.instants, *exchanged, source, exchange) : datedInstants(column.instants);
}

UsageError holdsNoDates(const DateSource& source, const Notice& example) {
  return UsageError(
      "dates.none",
      "dates: ^1 holds no dates (row 1: ^2). Name the first case's date instead, such as --start year=1959 "
      "quarter=1 (in a job file, under [dates]: start = { year = 1959, quarter = 1 }).",
      source.name, example);
}

std::vector<std::int64_t> daysOf(const std::vector<std::string>& texts, DateForm form) {
  std::vector<std::int64_t> instants;
  for (const std::string& text : texts) instants.push_back(readPeriod(text, form)->ordinal() * kDay);
  return instants;
}

Dated byTexts(const Column& column, const DateSource& source, bool exchange) {
  const std::vector<std::string>& texts = column.texts;
  const std::vector<DateForm> forms = formsOf(texts);
  if (forms.empty()) {
    const std::optional<OddText> odd = oddText(texts);
    if (!odd) throw holdsNoDates(source, "\"" + texts.front() + "\"");
    throw DataError("dates.odd",
                    "^1 holds \"^2\", which is no date like \"^3\". Correct it, or leave the row out in the query.",
                    rowName(source, odd->row), texts[odd->row], texts[odd->like]);
  }
  const auto empty = std::ranges::find(texts, "");
  if (empty != texts.end()) throw noDate(source, static_cast<std::size_t>(empty - texts.begin()));
  const auto isForm = [&](DateForm form) { return std::ranges::count(forms, form) > 0; };
  if (isForm(DateForm::dayMonthYear) && isForm(DateForm::monthDayYear)) {
    return inOneOrder(daysOf(texts, DateForm::dayMonthYear), daysOf(texts, DateForm::monthDayYear), source, exchange);
  }
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
  if (periods.empty()) throw holdsNoDates(source, source.dateOf(0));
  return datedPeriods(std::move(periods));
}

Notice dateText(const Column& column, std::size_t row) {
  if (column.kind == ColumnKind::instant) return rowDate(column.instants[row]);
  if (column.kind == ColumnKind::number) {
    return column.numbers[row] == kSystemMissing ? phrase("no date") : Notice(numberText(column.numbers[row]));
  }
  return column.texts[row].empty() ? phrase("no date") : Notice(column.texts[row]);
}

}  // namespace

DatedRows datedByColumn(const Dataset& dataset, const std::string& name, bool exchange) {
  const Column& column = dataset.columns[static_cast<std::size_t>(columnNamed(dataset, name))];
  const DateSource source{phrase("column ^1", "\"" + column.name + "\""), "\"" + column.name + "\"",
                          [&column](std::size_t row) { return dateText(column, row); }};
  Dated dated = column.kind == ColumnKind::instant ? byInstants(column, source, exchange)
                : column.kind == ColumnKind::text  ? byTexts(column, source, exchange)
                                                   : byNumbers(column, source);
  if (dataset.rowCount < 2) {
    throw DataError("dates.one-row",
                    "^1: one row does not tell the frequency. Name the first case's date instead, such as --start "
                    "year=1959 quarter=1 (in a job file, under [dates]: start = { year = 1959, quarter = 1 }).",
                    source.name);
  }
  return {std::move(dated.periods), dated.frequency, source, std::move(dated.reading)};
}

std::vector<int> componentColumns(const Dataset& dataset, const std::map<Unit, std::string>& variables) {
  std::vector<Unit> given;
  std::vector<int> columns;
  for (const auto& [unit, name] : variables) {
    given.push_back(unit);
    columns.push_back(columnNamed(dataset, name));
    if (dataset.columns[static_cast<std::size_t>(columns.back())].kind == ColumnKind::number) continue;
    throw UsageError("dates.text-component",
                     "dates: column \"^1\" is not numeric. Convert it in the query, for instance CAST(^1 AS INTEGER).",
                     name);
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
  const DateSource source{columns.columns.size() == 1 ? phrase("column ^1", names) : phrase("columns ^1", names), names,
                          [&dataset, columns](std::size_t row) {
                            const std::optional<Period> period = columns.period(dataset, row);
                            return period ? Notice(periodLabel(*period)) : phrase("no date");
                          }};
  std::vector<Period> periods;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    const std::optional<Period> period = columns.period(dataset, row);
    if (!period) {
      throw DataError("dates.bad-components", "^1 holds no date: ^2. Correct it, or leave such rows out in the query.",
                      rowName(source, row), columns.fault(dataset, row));
    }
    periods.push_back(*period);
  }
  Dated dated = datedPeriods(periods);
  // The components name the unit: years, months and days are days, however far apart.
  if (dated.frequency.unit != columns.finest) dated = spacedPeriods(std::move(periods));
  return {std::move(dated.periods), dated.frequency, source};
}

}  // namespace workbench
