// Columns of data for a page's script, each different one held once.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

class ColumnStore {
 public:
  // Each returns the column's number. Numbers are written so that they read back as the same double; NaN as null.
  std::size_t add(const std::vector<double>& values);
  std::size_t add(const std::vector<std::size_t>& values);
  std::size_t add(const std::vector<std::string>& texts);  // UTF-8

  // All columns as a JSON array of arrays, safe inside a <script> element.
  std::string json() const;

 private:
  std::size_t addText(std::string column);

  std::unordered_map<std::string, std::size_t> numbers_;
  std::vector<std::string_view> columns_;  // the keys of numbers_, which do not move
};

}  // namespace workbench
