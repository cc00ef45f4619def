#include "workbench/dates/date_variables.h"

#include <algorithm>

#include "workbench/base/errors.h"
#include "workbench/base/letter_case.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

constexpr const char* kLabelVariable = "DATE_";

// One column of values for each component of the cases' dates.
std::vector<std::vector<double>> componentValues(const Dataset& dataset, const CaseCalendar& calendar) {
  std::vector<std::vector<double>> values(unitsOf(calendar.first.unit()).size());
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    const std::vector<std::int64_t> components = calendar.period(static_cast<std::int64_t>(row))->components();
    for (std::size_t i = 0; i < components.size(); ++i) values[i].push_back(static_cast<double>(components[i]));
  }
  return values;
}

void requireSameValues(const Column& column, const std::vector<double>& values) {
  const Notice remedy = phrase(
      "Rename or drop it in the query, or name the columns that hold the dates: variables = { year = \"...\", ... }.");
  if (column.kind != ColumnKind::number) {
    throw UsageError(Notice("dates.variable-text", "column \"^1\" has the name of a date variable but is not numeric.",
                            column.name) +
                     remedy);
  }
  const auto [stored, expected] = std::ranges::mismatch(column.numbers, values);
  if (expected == values.end()) return;
  throw UsageError(Notice("dates.variable-differs",
                          "column \"^1\" has the name of a date variable but another value than ^2 in row ^3.",
                          column.name, static_cast<std::int64_t>(*expected), expected - values.begin() + 1) +
                   remedy);
}

Column componentColumn(Unit unit, std::vector<double> values) {
  Column column;
  column.name = dateVariableName(unit);
  column.label = column.name.substr(0, column.name.size() - 1);
  if (cycleLength(unit) > 0) column.label += ", period " + std::to_string(cycleLength(unit));
  column.level = MeasurementLevel::ordinal;
  column.printFormat = column.writeFormat = {5, 8, 0};
  column.numbers = std::move(values);
  return column;
}

}  // namespace

std::string dateVariableName(Unit unit) {
  if (unit == Unit::observation) return "OBS_";
  return upperCase(std::string(unitName(unit))) + "_";
}

std::vector<DateVariable> dateVariablesOf(Unit finest, const std::vector<int>& columns) {
  std::vector<DateVariable> variables;
  const std::span<const Unit> units = unitsOf(finest);
  for (std::size_t i = 0; i < units.size(); ++i) {
    variables.push_back(
        {.column = columns[i], .unitCode = static_cast<int>(units[i]), .periodicity = cycleLength(units[i])});
  }
  return variables;
}

std::vector<DateVariable> makeDateVariables(Dataset& dataset, const CaseCalendar& calendar) {
  const Unit finest = calendar.first.unit();
  const std::span<const Unit> units = unitsOf(finest);
  std::vector<std::vector<double>> values = componentValues(dataset, calendar);
  std::vector<int> columns;
  std::vector<Column> added;
  for (std::size_t i = 0; i < units.size(); ++i) {
    const int existing = dataset.find(dateVariableName(units[i]));
    if (existing >= 0) {
      requireSameValues(dataset.columns[static_cast<std::size_t>(existing)], values[i]);
      columns.push_back(existing);
    } else {
      columns.push_back(static_cast<int>(dataset.columns.size() + added.size()));
      added.push_back(componentColumn(units[i], std::move(values[i])));
    }
  }
  std::ranges::move(added, std::back_inserter(dataset.columns));
  return dateVariablesOf(finest, columns);
}

void makeDateLabels(Dataset& dataset, const CaseCalendar& calendar) {
  if (dataset.find(kLabelVariable) >= 0) return;
  Column column;
  column.name = kLabelVariable;
  column.label = "Date";
  column.kind = ColumnKind::text;
  column.level = MeasurementLevel::nominal;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    column.texts.push_back(periodLabel(*calendar.period(static_cast<std::int64_t>(row))));
    column.textWidth = std::max(column.textWidth, static_cast<int>(column.texts.back().size()));
  }
  dataset.columns.push_back(std::move(column));
}

}  // namespace workbench
