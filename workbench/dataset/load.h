// Reading the active dataset through DuckDB.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"
#include "workbench/dataset/file_format.h"

namespace workbench {

struct DataRequest {
  // Any file DuckDB reads (CSV, Parquet, JSON, ...), or "-": CSV on standard input. May be empty when a query is given.
  std::filesystem::path source;
  std::string query;                     // optional, one SELECT over the view `source`; "" reads the whole file
  std::filesystem::path jobFolder = {};  // whose files a query may read beside those of the source's; empty: none
  FileFormat format = {};
  bool unsafe = false;  // the query may do whatever DuckDB can: several statements, any file, the network
};

// Columns in the order of the result, cases in its order. Integers, decimals and booleans become 64-bit floats, text
// stays text, DATE and TIMESTAMP become instants. Throws DataError naming the file and keeping DuckDB's own message.
//
// In CSV files the fields NA, N/A, #N/A, NULL, null, "." and empty ones are missing; integers are integers for a query
// only in files of up to 1 MiB, else 64-bit floats. Of a database file with one table that table is `source`; the
// others are read by a query that names them. A query reads files of the source's and the job's folder alone, writes
// nothing and reaches no network; its relative file names start at the first of the two that has such a file.
Dataset loadDataset(const DataRequest& request);

// The files that the request's query reads beside the source, as far as it names them; none of an unsafe one.
std::vector<std::filesystem::path> filesOfQuery(const DataRequest& request);

}  // namespace workbench
