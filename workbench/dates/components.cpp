#include "workbench/dates/components.h"

#include <algorithm>
#include <cmath>

#include "workbench/base/errors.h"

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

void requireUnits(const std::vector<Unit>& given, Unit finest, const std::string& place) {
  const std::span<const Unit> needed = unitsOf(finest);
  const std::string rule =
      " (a date by " + std::string(unitName(finest)) + " is made of " + unitList(needed) + " and nothing else).";
  for (const Unit unit : needed) {
    if (!contains(given, unit)) throw UsageError(place + " is incomplete: add " + std::string(unitName(unit)) + rule);
  }
  for (const Unit unit : given) {
    if (!contains(needed, unit)) throw UsageError(place + ": remove " + std::string(unitName(unit)) + rule);
  }
}

std::string componentFault(Unit finest, std::span<const std::int64_t> components) {
  const std::span<const Unit> units = unitsOf(finest);
  for (std::size_t i = 0; i < units.size(); ++i) {
    const ComponentRange range = componentRange(units[i], components.first(i));
    if (components[i] >= range.first && components[i] <= range.last) continue;
    return std::string(unitName(units[i])) + " must be " + std::to_string(range.first) + " to " +
           std::to_string(range.last) + (i > 0 ? " here" : "") + ", not " + std::to_string(components[i]);
  }
  return "";
}

Period periodFromRequest(const DateComponents& components, Unit finest, const std::string& place) {
  std::vector<Unit> given;
  std::vector<std::int64_t> values;
  for (const auto& [unit, value] : components) {
    given.push_back(unit);
    values.push_back(value);
  }
  requireUnits(given, finest, place);
  const std::optional<Period> period = Period::of(finest, values);
  if (!period) throw UsageError(place + " is no date: " + componentFault(finest, values) + ".");
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

std::string DateColumns::fault(const Dataset& dataset, std::size_t row) const {
  std::vector<std::int64_t> components;
  for (const int index : columns) {
    const Column& column = dataset.columns[static_cast<std::size_t>(index)];
    const double value = column.numbers[row];
    if (value == kSystemMissing) return "\"" + column.name + "\" is missing";
    if (!isWholeNumber(value)) return "\"" + column.name + "\" is not a whole number";
    components.push_back(static_cast<std::int64_t>(value));
  }
  return componentFault(finest, components);
}

}  // namespace workbench
