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
  if (duckdb_query(connection_, sql.c_str(), result.get()) != DuckDBSuccess) {
    const char* message = duckdb_result_error(result.get());
    throw DuckdbError(message != nullptr ? message : "unknown error");
  }
  return result;
}

std::string sqlText(std::string_view text) {
  return quoted(text, '\'');
}

std::string sqlIdentifier(std::string_view name) {
  return quoted(name, '"');
}

std::string sqlFileName(const std::filesystem::path& path) {
  std::string pattern;
  for (const char c : path.string()) {
    if (c == '*' || c == '?' || c == '[') {
      pattern += {'[', c, ']'};
    } else {
      pattern += c;
    }
  }
  return sqlText(pattern);
}

}  // namespace workbench
