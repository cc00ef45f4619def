// A dataset of numeric variables written through DuckDB, which reads it in place.

#pragma once

#include <filesystem>
#include <string>

#include "workbench/dataset/dataset.h"
#include "workbench/dataset/duckdb_connection.h"

namespace workbench {

// A value that is written as missing: system-missing or NaN.
bool isMissingNumber(double value);

// Both write a new file at the path and throw DuckdbError.
void writeParquet(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);
void writeDatabase(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);

}  // namespace workbench
