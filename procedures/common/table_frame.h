// What the tables of a procedure have in common.

#pragma once

#include <memory>
#include <string>

#include "host/table_builder.h"

namespace procedures {

// The defaults are the commonest values. All texts are display texts.
struct TableFrame {
  std::string title;
  int decimals = 3;
  bool limitsWidth = true;  // to 100 .. 300 points a column
  bool showsTitle = true;
  std::string rowLabel;
  std::string columnLabel;
  bool showsColumnLabel = false;
};

inline constexpr int kCellWidth = 10;  // characters of a number

// A table with its frame set and no categories yet; null when the host cannot create it.
std::unique_ptr<tablestatjson::TableBuilder> createTable(StatJSONGenerator& generator, const std::string& name,
                                                         const TableFrame& frame);

}  // namespace procedures
