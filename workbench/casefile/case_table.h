// A dataset of numeric variables written through DuckDB, which reads it in place.

#pragma once

#include <filesystem>
#include <string>

#include "workbench/dataset/dataset.h"
#include "workbench/dataset/duckdb_connection.h"

namespace workbench {

// All write a new file at the path, or write into a device, and throw DuckdbError. CSV has no place for metadata.
void writeCsv(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);
void writeParquet(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);
void writeDatabase(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file);

}  // namespace workbench
