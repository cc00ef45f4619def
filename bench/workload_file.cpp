// workload_file NAME FILE: writes the series y1, y2, .. of a workload as CSV or Parquet, by the file's ending. Besides
// the workloads in memory it knows w5 (T = 5,000,000, K = 5).

#include <duckdb.h>

#include <cstdio>
#include <stdexcept>
#include <string>

#include "bench/simulated_var.h"

namespace bench {
namespace {

void run(duckdb_connection connection, const std::string& statement) {
  duckdb_result result;
  const bool failed = duckdb_query(connection, statement.c_str(), &result) == DuckDBError;
  const std::string message = failed ? duckdb_result_error(&result) : "";
  duckdb_destroy_result(&result);
  if (failed) throw std::runtime_error(message);
}

void append(duckdb_connection connection, const std::vector<std::vector<double>>& series) {
  duckdb_appender appender;
  if (duckdb_appender_create(connection, nullptr, "data", &appender) == DuckDBError) throw std::runtime_error("append");
  for (std::size_t t = 0; t < series.front().size(); ++t) {
    for (const auto& one : series) duckdb_append_double(appender, one[t]);
    duckdb_appender_end_row(appender);
  }
  duckdb_appender_destroy(&appender);
}

void writeFile(const Workload& workload, const std::string& file) {
  std::string columns;
  for (std::size_t i = 1; i <= workload.series; ++i) {
    columns += (i > 1 ? ", y" : "y") + std::to_string(i) + " DOUBLE";
  }
  duckdb_database database;
  duckdb_connection connection;
  if (duckdb_open(nullptr, &database) == DuckDBError || duckdb_connect(database, &connection) == DuckDBError) {
    throw std::runtime_error("DuckDB");
  }
  run(connection, "CREATE TABLE data (" + columns + ")");
  append(connection, simulatedVar(workload.length, workload.series, 1));
  run(connection, "COPY data TO '" + file + "'");
  duckdb_disconnect(&connection);
  duckdb_close(&database);
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  std::vector<bench::Workload> known = bench::workloads();
  known.push_back({"w5", 5000000, 5, 4});
  for (const bench::Workload& workload : known) {
    if (workload.name != argv[1]) continue;
    bench::writeFile(workload, argv[2]);
    return 0;
  }
  std::fprintf(stderr, "workload_file: unknown workload %s\n", argv[1]);
  return 2;
}
