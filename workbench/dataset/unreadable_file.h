// What is wrong with a data file that DuckDB cannot read, or reads as something else than a table.

#pragma once

#include <filesystem>

#include "workbench/base/errors.h"
#include "workbench/dataset/dataset.h"
#include "workbench/dataset/duckdb_connection.h"

namespace workbench {

// DuckDB's own message; where lines are unequal, of which DuckDB only tells that no dialect fits, the first such line.
DataError unreadableFile(DuckdbConnection& connection, const std::filesystem::path& source, const DuckdbError& error);

// A file whose lines do not all have as many values as the header comes back as one column of whole lines: throws
// DataError for such a dataset.
void refuseWholeLines(DuckdbConnection& connection, const std::filesystem::path& source, const Dataset& dataset);

// A header with one name too few or too many loses its names, and becomes no row either: throws DataError.
void refuseLostHeader(const std::filesystem::path& source, const Dataset& dataset);

}  // namespace workbench
