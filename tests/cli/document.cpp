#include "document.h"

#include <limits>
#include <stdexcept>

namespace {

double number(const rapidjson::Value& value) {
  return value.IsNumber() ? value.GetDouble() : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace

OutputDocument::OutputDocument(const std::string& text) {
  document_.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str(), text.size());
  if (document_.HasParseError() || !document_.IsObject()) throw std::runtime_error("not a JSON document: " + text);
}

std::vector<std::string> OutputDocument::itemNames() const {
  std::vector<std::string> names;
  for (const auto& one : document_["items"].GetArray()) {
    names.push_back(std::string(one["type"].GetString()) + " " + one["name"].GetString());
  }
  return names;
}

const rapidjson::Value* OutputDocument::item(const std::string& name) const {
  for (const auto& one : document_["items"].GetArray()) {
    if (name == one["name"].GetString()) return &one;
  }
  return nullptr;
}

std::vector<double> OutputDocument::column(const std::string& table, rapidjson::SizeType index) const {
  std::vector<double> values;
  const rapidjson::Value* found = item(table);
  if (found == nullptr) return values;
  for (const auto& cells : (*found)["cells"].GetArray()) values.push_back(number(cells[index]));
  return values;
}

std::vector<double> OutputDocument::row(const std::string& table, rapidjson::SizeType index) const {
  std::vector<double> values;
  const rapidjson::Value* found = item(table);
  if (found == nullptr) return values;
  for (const auto& cell : (*found)["cells"][index].GetArray()) values.push_back(number(cell));
  return values;
}

std::string OutputDocument::footnote(const std::string& table) const {
  const rapidjson::Value* found = item(table);
  if (found == nullptr || !found->HasMember("footnotes")) return {};
  return (*found)["footnotes"][0].GetString();
}
