#include "workbench/cli/describe.h"

#include <algorithm>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

#include "workbench/base/visible_text.h"
#include "workbench/cli/data_notes.h"
#include "workbench/cli/job_input.h"
#include "workbench/cli/screen.h"
#include "workbench/cli/series_tests.h"
#include "workbench/commands/common/command_runner.h"
#include "workbench/dataset/case_value.h"
#include "workbench/dates/date_guess.h"
#include "workbench/dates/labels.h"
#include "workbench/edge/texts.h"
#include "workbench/render/pivot_table.h"

namespace workbench {

namespace {

Cell textCell(const std::string& text) {
  Cell cell;
  cell.missing = text.empty();
  cell.shown = {text, text.size()};
  return cell;
}

Cell countCell(std::size_t count) {
  Cell cell = textCell(std::to_string(count));
  cell.value = static_cast<double>(count);
  return cell;
}

// The column's values that are not missing, and the texts of its least and greatest one.
struct Extent {
  std::size_t values = 0;
  std::string least;
  std::string greatest;
};

Extent numberExtent(const Column& column, std::size_t rows) {
  std::vector<double> values;
  for (std::size_t row = 0; row < rows; ++row) {
    const double value = caseValue(column, row, true);
    if (value != kSystemMissing) values.push_back(value);
  }
  if (values.empty()) return {};
  const auto [least, greatest] = std::ranges::minmax(values);
  return {values.size(), numberText(least), numberText(greatest)};
}

Extent instantExtent(const Column& column) {
  std::vector<std::int64_t> instants = column.instants;
  std::erase(instants, kMissingInstant);
  if (instants.empty()) return {};
  const auto [least, greatest] = std::ranges::minmax(instants);
  return {instants.size(), instantText(least).text(), instantText(greatest).text()};
}

Extent textExtent(const Column& column) {
  std::vector<std::string> texts = column.texts;
  std::erase(texts, "");
  if (texts.empty()) return {};
  return {texts.size(), texts.front(), texts.back()};
}

std::string typeName(ColumnKind kind) {
  if (kind == ColumnKind::number) return tr("number");
  return kind == ColumnKind::text ? tr("text") : tr("date");
}

PivotTable variablesTable(const Dataset& dataset) {
  PivotTable table;
  table.title = tr("Variables");
  table.rowDimension.label = tr("Variable");
  for (const std::string& label : {tr("Type"), tr("Values"), tr("Missing"), tr("From"), tr("To")}) {
    table.columns.push_back({label, {}});
  }
  for (const Column& column : dataset.columns) {
    const Extent extent = column.kind == ColumnKind::number ? numberExtent(column, dataset.rowCount)
                          : column.kind == ColumnKind::text ? textExtent(column)
                                                            : instantExtent(column);
    table.rows.push_back(column.name);
    table.cells.push_back({textCell(typeName(column.kind)), countCell(extent.values),
                           countCell(dataset.rowCount - extent.values), textCell(visibleText(extent.least)),
                           textCell(visibleText(extent.greatest))});
  }
  return table;
}

std::string datesOption(const DatesRequest& request) {
  if (request.variables.empty()) return "--dates " + request.column;
  std::string words = "--dates";
  for (const auto& [unit, name] : request.variables) words += " " + std::string(unitName(unit)) + "=" + name;
  return words;
}

// Languages have words and genders of their own for every unit.
std::string oneRowA(Unit unit) {
  switch (unit) {
    case Unit::year:
      return tr("one row a year");
    case Unit::quarter:
      return tr("one row a quarter");
    case Unit::month:
      return tr("one row a month");
    case Unit::week:
      return tr("one row a week");
    case Unit::day:
      return tr("one row a day");
    case Unit::hour:
      return tr("one row an hour");
    case Unit::minute:
      return tr("one row a minute");
    default:
      return tr("one row a second");
  }
}

std::string oneRowEvery(std::int64_t step, Unit unit) {
  switch (unit) {
    case Unit::year:
      return tr("one row every ^1 years", step);
    case Unit::quarter:
      return tr("one row every ^1 quarters", step);
    case Unit::month:
      return tr("one row every ^1 months", step);
    case Unit::week:
      return tr("one row every ^1 weeks", step);
    case Unit::day:
      return tr("one row every ^1 days", step);
    case Unit::hour:
      return tr("one row every ^1 hours", step);
    case Unit::minute:
      return tr("one row every ^1 minutes", step);
    default:
      return tr("one row every ^1 seconds", step);
  }
}

std::string frequencyText(const DateGuess& guess) {
  if (guess.businessDays) return tr("business days");
  return guess.step == 1 ? oneRowA(guess.unit) : oneRowEvery(guess.step, guess.unit);
}

// The columns that date the rows are no series.
std::set<std::string> dateColumns(const std::vector<DateGuess>& guesses) {
  std::set<std::string> names;
  for (const DateGuess& guess : guesses) {
    if (!guess.request.column.empty()) names.insert(guess.request.column);
    for (const auto& [unit, name] : guess.request.variables) names.insert(name);
  }
  return names;
}

void showDates(const std::vector<DateGuess>& guesses) {
  if (guesses.empty()) {
    showLine(tr("No column dates the rows. Name the first row's date, such as --start year=1959 quarter=1."));
  }
  for (const DateGuess& guess : guesses) {
    if (guess.fault.empty()) {
      showLine(tr("Dates: ^1 gives ^2 to ^3, ^4.", datesOption(guess.request), guess.first, guess.last,
                  frequencyText(guess)));
    } else {
      showLine(tr("Dates: ^1 is refused. ^2", datesOption(guess.request), guess.fault));
    }
  }
}

}  // namespace

int describeData(const DescribeOptions& options) {
  Job job;
  job.data = {options.data, options.query};
  job.data.unsafe = options.unsafeSql;
  job.data.format = formatFrom(options.reading);
  JobInput input = prepareInput(job, options.output);
  const CommandRunner runner(std::move(input.call), {});
  const Dataset& dataset = runner.input().dataset;
  showLine(tr("^1: ^2 rows, ^3 variables", dataset.origin, dataset.rowCount, dataset.columns.size()));
  showLine("");
  showTable(variablesTable(dataset));
  const std::vector<DateGuess> guesses = guessDates(dataset);
  showDates(guesses);
  showSeriesTests(dataset, dateColumns(guesses), runner.input().language);
  std::vector<int> columns(dataset.columns.size());
  std::iota(columns.begin(), columns.end(), 0);
  for (const Notice& note : dataNotes(job, runner.input(), columns)) showNote(note);
  return 0;
}

}  // namespace workbench
