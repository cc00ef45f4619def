// Reading a run's output document in tests.

#pragma once

#include <string>
#include <vector>

#include "host/json_document.h"

// The document that `--json` wrote. Cells are found by the item's name and the labels of row and column.
class OutputDocument {
 public:
  explicit OutputDocument(const std::string& text);

  std::vector<std::string> itemNames() const;
  const rapidjson::Value* item(const std::string& name) const;  // null when there is none
  // A whole column of a table, by position over leaf columns; NaN for null.
  std::vector<double> column(const std::string& table, rapidjson::SizeType index) const;
  std::vector<double> row(const std::string& table, rapidjson::SizeType index) const;
  std::string footnote(const std::string& table) const;  // the first one; "" when there is none

 private:
  rapidjson::Document document_;
};
