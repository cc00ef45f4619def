// The formats in which the tables of a document can be written for other programs: each one line of a list.

#pragma once

#include <span>
#include <string>
#include <string_view>

#include "workbench/render/pivot_table.h"

namespace workbench {

struct TableFormat {
  std::string_view name;
  std::string_view word;       // that chooses it on a command line
  std::string_view extension;  // of its files, with the point
  std::string (*paint)(const PivotTable& table);
};

std::span<const TableFormat> tableFormats();

// The format of a file name's extension, in letters of either case; null for another one.
const TableFormat* tableFormatOf(std::string_view fileName);

// The tables of a document in their order, an empty line between them.
std::string writeTables(const rapidjson::Value& document, const TableFormat& format, const Language& language = {});

}  // namespace workbench
