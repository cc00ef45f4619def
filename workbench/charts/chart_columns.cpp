#include "workbench/charts/chart_columns.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace workbench {

namespace {

std::string cellText(const rapidjson::Value& cell) {
  if (cell.IsString()) return {cell.GetString(), cell.GetStringLength()};
  return cell.IsNumber() ? fmt::format("{}", cell.GetDouble()) : std::string();
}

}  // namespace

const rapidjson::Value* ChartColumns::find(const std::string& name) const {
  if (!columns_.IsObject() || name.empty()) return nullptr;
  const auto found = columns_.FindMember(rapidjson::Value(rapidjson::StringRef(name.data(), name.size())));
  return found != columns_.MemberEnd() && found->value.IsArray() ? &found->value : nullptr;
}

std::string ChartColumns::text(const std::string& name, std::size_t row) const {
  return cellText((*find(name))[static_cast<rapidjson::SizeType>(row)]);
}

double ChartColumns::number(const std::string& name, std::size_t row) const {
  const rapidjson::Value& cell = (*find(name))[static_cast<rapidjson::SizeType>(row)];
  const double value = cell.IsNumber() ? cell.GetDouble() : std::numeric_limits<double>::quiet_NaN();
  return std::isfinite(value) ? value : std::numeric_limits<double>::quiet_NaN();
}

std::set<std::string> ChartColumns::distinctTexts(const std::string& name) const {
  std::set<std::string> texts;
  if (const rapidjson::Value* cells = find(name)) {
    for (const rapidjson::Value& cell : cells->GetArray()) texts.insert(cellText(cell));
  }
  return texts;
}

std::size_t ChartColumns::rowCount(const ChartSpec& spec) const {
  std::size_t rows = std::numeric_limits<std::size_t>::max();
  for (const std::string& name : requiredColumns(spec)) {
    if (const rapidjson::Value* cells = find(name)) rows = std::min<std::size_t>(rows, cells->Size());
  }
  return rows == std::numeric_limits<std::size_t>::max() ? 0 : rows;
}

std::vector<std::string> requiredColumns(const ChartSpec& spec) {
  std::vector<std::string> names;
  for (const ChartElement& element : spec.elements) {
    names.insert(names.end(), {element.xColumn, element.yColumn});
    if (element.kind == ChartElement::Kind::band) names.push_back(element.upperColumn);
    for (const std::string* optional : {&element.seriesColumn, &element.textColumn}) {
      if (!optional->empty()) names.push_back(*optional);
    }
  }
  if (spec.panel) names.insert(names.end(), {spec.panel->rowColumn, spec.panel->columnColumn});
  return names;
}

}  // namespace workbench
