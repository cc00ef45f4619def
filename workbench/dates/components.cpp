#include "workbench/dates/components.h"

#include <algorithm>
#include <cmath>

#include "workbench/base/errors.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

std::string unitList(std::span<const Unit> units) {
  std::string text;
  for (const Unit unit : units) text += (text.empty() ? "" : ", ") + std::string(unitName(unit));
  return text;
}

bool contains(std::span<const Unit> units, Unit unit) {
  return std::ranges::find(units, unit) != units.end();
}

// Far wider than any component, and every whole number within it is an exact integer in both types.
bool isWholeNumber(double value) {
  return std::abs(value) <= 1e15 && value == std::floor(value);
}

}  // namespace

void requireUnits(const std::vector<Unit>& given, Unit finest, const Notice& place) {
  const std::span<const Unit> needed = unitsOf(finest);
  const Notice rule = phrase("A date by ^1 is made of ^2 and nothing else.", unitPhrase(finest), unitList(needed));
  for (const Unit unit : needed) {
    if (!contains(given, unit)) {
      throw UsageError(Notice("dates.incomplete", "^1 is incomplete: add ^2.", place, unitName(unit)) + rule);
    }
  }
  for (const Unit unit : given) {
    if (!contains(needed, unit)) {
      throw UsageError(Notice("dates.superfluous", "^1: remove ^2.", place, unitName(unit)) + rule);
    }
  }
}

Notice componentFault(Unit finest, std::span<const std::int64_t> components) {
  const std::span<const Unit> units = unitsOf(finest);
  for (std::size_t i = 0; i < units.size(); ++i) {
    const ComponentRange range = componentRange(units[i], components.first(i));
    if (components[i] >= range.first && components[i] <= range.last) continue;
    return i > 0
               ? phrase("^1 must be ^2 to ^3 here, not ^4", unitName(units[i]), range.first, range.last, components[i])
               : phrase("^1 must be ^2 to ^3, not ^4", unitName(units[i]), range.first, range.last, components[i]);
  }
  return {};
}

Period periodFromRequest(const DateComponents& components, Unit finest, const Notice& place) {
  std::vector<Unit> given;
  std::vector<std::int64_t> values;
  for (const auto& [unit, value] : components) {
    given.push_back(unit);
    values.push_back(value);
  }
  requireUnits(given, finest, place);
  const std::optional<Period> period = Period::of(finest, values);
  if (!period) throw UsageError("dates.impossible", "^1 is no date: ^2.", place, componentFault(finest, values));
  return *period;
}

std::optional<Period> DateColumns::period(const Dataset& dataset, std::size_t row) const {
  std::vector<std::int64_t> components;
  for (const int column : columns) {
    const double value = dataset.columns[static_cast<std::size_t>(column)].numbers[row];
    if (!isWholeNumber(value)) return std::nullopt;
    components.push_back(static_cast<std::int64_t>(value));
  }
  return Period::of(finest, components);
}

Notice DateColumns::fault(const Dataset& dataset, std::size_t row) const {
  std::vector<std::int64_t> components;
  for (const int index : columns) {
    const Column& column = dataset.columns[static_cast<std::size_t>(index)];
    const double value = column.numbers[row];
    if (value == kSystemMissing) return phrase("\"^1\" is missing", column.name);
    if (!isWholeNumber(value)) return phrase("\"^1\" is not a whole number", column.name);
    components.push_back(static_cast<std::int64_t>(value));
  }
  return componentFault(finest, components);
}

}  // namespace workbench
