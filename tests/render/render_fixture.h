// Tables and documents for the painters' tests, written as the output document writes them.

#pragma once

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/render/comma_language.h"
#include "workbench/render/pivot_table.h"

namespace workbench {

inline rapidjson::Document parseJson(const std::string& json) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(json.data(), json.size());
  if (document.HasParseError()) throw std::runtime_error("test document: " + json);
  return document;
}

inline PivotTable tableFromJson(const std::string& json, const Language& language = {}) {
  return readPivotTable(parseJson(json), language);
}

// Names that a variable may have and that a page, a plot and a terminal must survive.
inline std::vector<std::string> hostileNames() {
  std::vector<std::string> names{" ", "bad \xff\xc3 bytes \xe2\x82", std::string(300, 'n')};
  std::ifstream stream(VARMODEL_SOURCE_DIR "/tests/render/hostile_names.json");
  const rapidjson::Document list = parseJson(std::string(std::istreambuf_iterator<char>(stream), {}));
  for (const auto& name : list.GetArray()) names.emplace_back(name.GetString(), name.GetStringLength());
  return names;
}

inline std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace workbench
