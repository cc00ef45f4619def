// Reading the record of a run in tests.

#pragma once

#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/base/json.h"

// The documents in what `--json` wrote; an item is looked for in the last command's document first.
class OutputDocument {
 public:
  explicit OutputDocument(const std::string& text) {
    record_.Parse<rapidjson::kParseFullPrecisionFlag>(text.c_str(), text.size());
    if (record_.HasParseError() || !record_.IsObject()) throw std::runtime_error("not a JSON record: " + text);
  }

  const rapidjson::Document& record() const { return record_; }

  const rapidjson::Value& item(const std::string& name) const {
    const rapidjson::Value& documents = record_["documents"];
    for (rapidjson::SizeType i = documents.Size(); i > 0; --i) {
      for (const auto& one : documents[i - 1]["document"]["items"].GetArray()) {
        if (name == one["name"].GetString()) return one;
      }
    }
    throw std::runtime_error("no document has an item " + name);
  }

  // A table's cells, row by row over leaf columns; NaN for what is no number.
  std::vector<std::vector<double>> cells(const std::string& table) const {
    std::vector<std::vector<double>> rows;
    for (const auto& row : item(table)["cells"].GetArray()) {
      rows.emplace_back();
      for (const auto& cell : row.GetArray()) {
        rows.back().push_back(cell.IsNumber() ? cell.GetDouble() : std::numeric_limits<double>::quiet_NaN());
      }
    }
    return rows;
  }

  std::vector<std::string> columnLabels(const std::string& table) const {
    std::vector<std::string> labels;
    for (const auto& column : item(table)["columns"].GetArray()) labels.emplace_back(column["label"].GetString());
    return labels;
  }

  std::string footnote(const std::string& table) const { return item(table)["footnotes"][0].GetString(); }

 private:
  rapidjson::Document record_;
};
