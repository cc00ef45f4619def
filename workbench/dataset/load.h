// Reading the active dataset through DuckDB.

#pragma once

#include <filesystem>
#include <string>

#include "workbench/dataset/dataset.h"

namespace workbench {

struct DataRequest {
  std::filesystem::path source;  // any file DuckDB reads (CSV, Parquet, JSON, ...); may be empty when a query is given
  std::string query;             // optional SQL over the view `source`; "" reads the whole file
};

// Columns in the order of the result, cases in its order. Integers, decimals and booleans become 64-bit floats, text
// stays text, DATE and TIMESTAMP become instants. Throws DataError naming the file and keeping DuckDB's own message.
//
// In CSV files the fields NA, N/A, #N/A, NULL, null, "." and empty ones are missing; integers are integers for a query
// only in files of up to 1 MiB, else 64-bit floats. Of a database file with one table that table is `source`; the
// others are read by a query that names them. Relative file names in a query start at the data file's folder.
Dataset loadDataset(const DataRequest& request);

}  // namespace workbench
