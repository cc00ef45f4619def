#include "workbench/dataset/duckdb_connection.h"

#include <utility>

namespace workbench {

namespace {

std::string quoted(std::string_view text, char quote) {
  std::string result(1, quote);
  for (const char c : text) {
    if (c == quote) result += quote;
    result += c;
  }
  return result += quote;
}

class Config {
 public:
  Config() {
    if (duckdb_create_config(&config_) != DuckDBSuccess) throw DuckdbError("DuckDB could not be configured");
  }
  Config(const Config&) = delete;
  Config& operator=(const Config&) = delete;
  ~Config() { duckdb_destroy_config(&config_); }

  void set(const char* name, const std::string& value) { duckdb_set_config(config_, name, value.c_str()); }
  duckdb_config get() const { return config_; }

 private:
  duckdb_config config_ = nullptr;
};

class Statements {
 public:
  Statements(duckdb_connection connection, const std::string& sql)
      : count_(duckdb_extract_statements(connection, sql.c_str(), &statements_)) {}
  Statements(const Statements&) = delete;
  Statements& operator=(const Statements&) = delete;
  ~Statements() { duckdb_destroy_extracted(&statements_); }

  // Throws DuckdbError for a mistake of syntax.
  std::size_t count() const {
    const char* message = count_ == 0 ? duckdb_extract_statements_error(statements_) : nullptr;
    if (message != nullptr) throw DuckdbError(message);
    return count_;
  }
  duckdb_extracted_statements get() const { return statements_; }

 private:
  duckdb_extracted_statements statements_ = nullptr;
  idx_t count_;
};

class PreparedStatement {
 public:
  PreparedStatement(duckdb_connection connection, const Statements& statements) {
    if (duckdb_prepare_extracted_statement(connection, statements.get(), 0, &statement_) == DuckDBSuccess) return;
    const std::string message = duckdb_prepare_error(statement_);
    duckdb_destroy_prepare(&statement_);
    throw DuckdbError(message);
  }
  PreparedStatement(const PreparedStatement&) = delete;
  PreparedStatement& operator=(const PreparedStatement&) = delete;
  ~PreparedStatement() { duckdb_destroy_prepare(&statement_); }

  duckdb_prepared_statement get() const { return statement_; }

 private:
  duckdb_prepared_statement statement_ = nullptr;
};

void requireSuccess(duckdb_state state, DuckdbResult& result) {
  if (state == DuckDBSuccess) return;
  const char* message = duckdb_result_error(result.get());
  throw DuckdbError(message != nullptr ? message : "unknown error");
}

}  // namespace

DuckdbResult::DuckdbResult(DuckdbResult&& other) noexcept : result_(std::exchange(other.result_, duckdb_result{})) {}

DuckdbConnection::DuckdbConnection(int threads) {
  Config config;
  config.set("autoinstall_known_extensions", "false");
  config.set("autoload_known_extensions", "false");
  config.set("temp_directory", "");
  if (threads > 0) config.set("threads", std::to_string(threads));
  char* message = nullptr;
  if (duckdb_open_ext(nullptr, &database_, config.get(), &message) != DuckDBSuccess) {
    const std::string text = message != nullptr ? message : "unknown error";
    duckdb_free(message);
    throw DuckdbError("DuckDB could not be started: " + text);
  }
  if (duckdb_connect(database_, &connection_) != DuckDBSuccess) {
    duckdb_close(&database_);
    throw DuckdbError("DuckDB refused a connection");
  }
}

DuckdbConnection::~DuckdbConnection() {
  duckdb_disconnect(&connection_);
  duckdb_close(&database_);
}

DuckdbResult DuckdbConnection::query(const std::string& sql) {
  DuckdbResult result;
  requireSuccess(duckdb_query(connection_, sql.c_str(), result.get()), result);
  return result;
}

DuckdbResult DuckdbConnection::select(const std::string& sql) {
  const Statements statements(connection_, sql);
  if (statements.count() != 1) throw DuckdbError("not one statement");
  const PreparedStatement statement(connection_, statements);
  if (duckdb_prepared_statement_type(statement.get()) != DUCKDB_STATEMENT_TYPE_SELECT) {
    throw DuckdbError("not a SELECT");
  }
  DuckdbResult result;
  requireSuccess(duckdb_execute_prepared(statement.get(), result.get()), result);
  return result;
}

std::string DuckdbConnection::text(const std::string& sql) {
  DuckdbResult result = query(sql);
  duckdb_data_chunk chunk = duckdb_fetch_chunk(*result.get());
  auto* value = static_cast<duckdb_string_t*>(duckdb_vector_get_data(duckdb_data_chunk_get_vector(chunk, 0)));
  std::string text(duckdb_string_t_data(value), duckdb_string_t_length(*value));
  duckdb_destroy_data_chunk(&chunk);
  return text;
}

std::size_t DuckdbConnection::countStatements(const std::string& sql) {
  return Statements(connection_, sql).count();
}

std::string sqlText(std::string_view text) {
  return quoted(text, '\'');
}

std::string sqlIdentifier(std::string_view name) {
  return quoted(name, '"');
}

std::string literalFileName(const std::filesystem::path& path) {
  std::string pattern;
  for (const char c : path.string()) {
    if (c == '*' || c == '?' || c == '[') {
      pattern += {'[', c, ']'};
    } else {
      pattern += c;
    }
  }
  return pattern;
}

std::string sqlFileName(const std::filesystem::path& path) {
  return sqlText(literalFileName(path));
}

}  // namespace workbench
