// An in-memory DuckDB database for the length of one read or write. It never fetches extensions, never spills to disk.

#pragma once

#include <duckdb.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench {

// DuckDB's own message.
struct DuckdbError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class DuckdbResult {
 public:
  DuckdbResult() = default;
  DuckdbResult(DuckdbResult&& other) noexcept;
  DuckdbResult& operator=(const DuckdbResult&) = delete;
  ~DuckdbResult() { duckdb_destroy_result(&result_); }

  duckdb_result* get() { return &result_; }

 private:
  duckdb_result result_{};
};

class DuckdbConnection {
 public:
  explicit DuckdbConnection(int threads);  // 0: as many as DuckDB likes
  DuckdbConnection(const DuckdbConnection&) = delete;
  DuckdbConnection& operator=(const DuckdbConnection&) = delete;
  ~DuckdbConnection();

  // Runs one or more statements; the last one's result. Throws DuckdbError.
  DuckdbResult query(const std::string& sql);
  // Runs one statement that DuckDB itself takes for a SELECT; throws DuckdbError for any other.
  DuckdbResult select(const std::string& sql);
  // The first value of the first column, a text that is not null. Throws DuckdbError.
  std::string text(const std::string& sql);
  // How many statements the text holds. Throws DuckdbError for a mistake of syntax.
  std::size_t countStatements(const std::string& sql);
  duckdb_connection get() { return connection_; }

 private:
  duckdb_database database_ = nullptr;
  duckdb_connection connection_ = nullptr;
};

std::string sqlText(std::string_view text);                      // 'it''s'
std::string sqlIdentifier(std::string_view name);                // "say ""x"""
std::string literalFileName(const std::filesystem::path& path);  // a pattern for this one file: no wildcards
std::string sqlFileName(const std::filesystem::path& path);      // the same as a text

}  // namespace workbench
