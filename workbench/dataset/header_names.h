// Names that a file's header gives to two columns.

#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

struct RepeatedName {
  std::string name;        // in the header
  std::size_t column = 0;  // its second place, from 1
  std::string called;      // what the dataset calls that column
};

// Of a dataset read from a delimited text file: where a name with a number behind it ("gdp_1") stands for the same name
// without it in the file's header.
std::vector<RepeatedName> repeatedNames(const Dataset& dataset, const std::filesystem::path& source);

}  // namespace workbench
