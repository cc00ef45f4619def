#include "workbench/dataset/fingerprint.h"

#include <algorithm>
#include <array>
#include <bit>

#include "workbench/dataset/duckdb_connection.h"

namespace workbench {

namespace {

// DuckDB's own function, over bytes.
class Sha256 {
 public:
  Sha256() : connection_(1) {
    if (duckdb_prepare(connection_.get(), "SELECT sha256(?::BLOB)", &statement_) == DuckDBError) {
      throw DuckdbError(duckdb_prepare_error(statement_));
    }
  }
  Sha256(const Sha256&) = delete;
  Sha256& operator=(const Sha256&) = delete;
  ~Sha256() { duckdb_destroy_prepare(&statement_); }

  std::string operator()(const std::string& bytes) {
    DuckdbResult result;
    duckdb_bind_blob(statement_, 1, bytes.data(), bytes.size());
    if (duckdb_execute_prepared(statement_, result.get()) == DuckDBError) {
      throw DuckdbError(duckdb_result_error(result.get()));
    }
    char* digits = duckdb_value_varchar(result.get(), 0, 0);
    std::string text = digits;
    duckdb_free(digits);
    return text;
  }

 private:
  DuckdbConnection connection_;
  duckdb_prepared_statement statement_ = nullptr;
};

template <typename Word>
void append(std::string& bytes, const std::vector<Word>& values) {
  bytes.reserve(bytes.size() + values.size() * sizeof(Word));
  for (const Word value : values) {
    auto word = std::bit_cast<std::array<char, sizeof(Word)>>(value);
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(word);
    bytes.append(word.data(), word.size());
  }
}

std::string bytesOf(const Column& column) {
  constexpr std::string_view letters = "nti";
  std::string bytes = column.name + '\0' + letters[static_cast<std::size_t>(column.kind)];
  append(bytes, column.numbers);
  append(bytes, column.instants);
  for (const std::string& text : column.texts) bytes += text + '\0';
  return bytes;
}

}  // namespace

std::string fingerprint(const Dataset& dataset) {
  Sha256 sha256;
  std::string digits;
  for (const Column& column : dataset.columns) digits += sha256(bytesOf(column));
  return sha256(digits);
}

}  // namespace workbench
