#include "workbench/edge/saved_cases.h"

#include <span>
#include <utility>

#include "workbench/base/errors.h"

namespace workbench {

namespace {

Column rowColumn(std::span<const std::size_t> cases) {
  Column column;
  column.name = "row";
  column.label = "Row of the data";
  column.level = MeasurementLevel::ordinal;
  column.printFormat = column.writeFormat = {5, 8, 0};
  for (const std::size_t row : cases) column.numbers.push_back(static_cast<double>(row + 1));
  return column;
}

Column dateColumn(const Column& source, std::span<const std::size_t> cases) {
  Column column = source;
  column.numbers.clear();
  for (const std::size_t row : cases) column.numbers.push_back(source.numbers[row]);
  return column;
}

}  // namespace

void addCaseColumns(Dataset& saved, const CallInput& input) {
  if (saved.rowCount == 0 || input.keptCases.size() < saved.rowCount) return;
  const auto cases = std::span(input.keptCases).last(saved.rowCount);
  std::vector<Column> added{rowColumn(cases)};
  for (const DateVariable& variable : input.trends.dateVariables) {
    added.push_back(dateColumn(input.dataset.columns[static_cast<std::size_t>(variable.column)], cases));
  }
  for (const Column& column : added) {
    if (saved.find(column.name) < 0) continue;
    throw OutputError("two variables of the saved file would be named \"" + column.name +
                      "\": give the saved ones another prefix, or leave out save_cases.");
  }
  saved.columns.insert(saved.columns.begin(), std::make_move_iterator(added.begin()),
                       std::make_move_iterator(added.end()));
}

}  // namespace workbench
