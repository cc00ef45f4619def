#include "workbench/dates/case_label.h"

#include <algorithm>

#include "workbench/dates/components.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

// Nothing unless the date variables are those of one calendar unit.
std::optional<DateColumns> dateColumns(const TrendsSettings& settings) {
  std::vector<DateVariable> variables = settings.dateVariables;
  if (variables.empty()) return std::nullopt;
  std::ranges::sort(variables, {}, &DateVariable::unitCode);
  const std::optional<Unit> finest = unitFromCode(variables.back().unitCode);
  if (!finest) return std::nullopt;
  const auto sameUnit = [](const DateVariable& variable, Unit unit) {
    return variable.unitCode == static_cast<int>(unit);
  };
  if (!std::ranges::equal(variables, unitsOf(*finest), sameUnit)) return std::nullopt;
  DateColumns columns{*finest, {}};
  for (const DateVariable& variable : variables) columns.columns.push_back(variable.column);
  return columns;
}

std::string storedLabel(const Dataset& dataset, std::size_t row) {
  const auto column = std::ranges::find(dataset.columns, "DATE_", &Column::name);
  if (column == dataset.columns.end() || row >= column->texts.size()) return "";
  const std::string& text = column->texts[row];
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

std::optional<CaseCalendar> caseCalendar(const Dataset& dataset, const TrendsSettings& settings) {
  const std::optional<DateColumns> columns = dateColumns(settings);
  if (!columns || dataset.rowCount == 0) return std::nullopt;
  const std::optional<Period> first = columns->period(dataset, 0);
  if (!first) return std::nullopt;
  if (settings.businessDays) return CaseCalendar{*first, 1, true, settings.holidays};
  const std::optional<Period> second = dataset.rowCount > 1 ? columns->period(dataset, 1) : std::nullopt;
  const std::int64_t step = second ? second->ordinal() - first->ordinal() : 1;
  return CaseCalendar{*first, std::max<std::int64_t>(1, step), false};
}

std::string caseLabel(const Dataset& dataset, const TrendsSettings& settings, std::int64_t caseOffset) {
  const std::optional<CaseCalendar> calendar = caseCalendar(dataset, settings);
  const std::optional<Period> period = calendar ? calendar->period(caseOffset) : std::nullopt;
  if (!period) return std::to_string(caseOffset + 1);
  const std::string stored = caseOffset >= 0 ? storedLabel(dataset, static_cast<std::size_t>(caseOffset)) : "";
  return stored.empty() ? periodLabel(*period) : stored;
}

}  // namespace workbench
