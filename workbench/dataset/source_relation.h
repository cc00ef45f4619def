// Turning a data file into something that SQL can select from.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/dataset/duckdb_connection.h"
#include "workbench/dataset/file_format.h"

namespace workbench {

// Throws DataError unless the path names an existing, readable file.
void requireReadableFile(const std::filesystem::path& source);

// True for a CSV-like file that can be read twice.
bool isDelimitedText(const std::filesystem::path& source);

// The first line of a file that is plainly comma-separated text, for which DuckDB is told so; "" for other files.
std::string plainCommaHeader(const std::filesystem::path& source);

// True when the file is so small that more than one thread only costs time.
bool isSmallFile(const std::filesystem::path& source);

// The SQL of a relation over the file ("read_csv('a.csv', ...)"), read as the format says where it is text. A database
// file is attached for it, read-only, and made the one whose tables are found by their bare names; "" when it holds
// more than one table. Throws DuckdbError.
std::string sourceRelation(DuckdbConnection& connection, const std::filesystem::path& source,
                           const FileFormat& format = {});

// The names of the tables in the attached database file.
std::vector<std::string> attachedTables(DuckdbConnection& connection);

}  // namespace workbench
