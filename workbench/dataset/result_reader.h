// Filling a dataset from the result of a DuckDB statement.

#pragma once

#include "workbench/dataset/dataset.h"
#include "workbench/dataset/duckdb_connection.h"

namespace workbench {

// Throws DataError for a column of a type that a dataset cannot hold, for two columns of one name, and for no cases.
Dataset readResult(DuckdbResult result);

}  // namespace workbench
