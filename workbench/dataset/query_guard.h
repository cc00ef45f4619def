// What the query of a user may do: read. It is one SELECT over `source` and over files of a few folders.
//
// A job file may come from a stranger, so that its query must not write, load code, or reach the network. DuckDB itself
// is confined (no file outside the folders, no change of its configuration). Two ways stay open inside that: functions
// with effects that a SELECT can call (a log written into a folder, a statement held in a text), and relative file
// names, which DuckDB refuses whatever they name. The query's syntax tree closes both, and names the files that are
// read: no output of the run may be written over them, so that a query must write their names out.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/dataset/duckdb_connection.h"

namespace workbench {

// The one statement of a query that passes; its relative file names, which start at the first of the folders that has
// such a file, are full paths. Throws DataError with the remedy, or DuckdbError for a mistake of syntax.
std::string checkedQuery(DuckdbConnection& connection, const std::string& query,
                         const std::vector<std::filesystem::path>& folders);

// The existing files that the query names, with those that fit its wildcards. Nothing for a query that does not pass.
std::vector<std::filesystem::path> filesOfQuery(DuckdbConnection& connection, const std::string& query,
                                                const std::vector<std::filesystem::path>& folders);

// From now on the connection reads only files of these folders, and stays so.
void confine(DuckdbConnection& connection, const std::vector<std::filesystem::path>& folders);

}  // namespace workbench
