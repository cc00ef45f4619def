#include "workbench/casefile/case_table.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "workbench/base/spreadsheet_text.h"

namespace workbench {

namespace {

constexpr std::size_t kSmallDataset = 100'000;

// The table function `cases()`: the dataset is its extra information, the next case its state.

void bindCases(duckdb_bind_info info) {
  const auto& dataset = *static_cast<const Dataset*>(duckdb_bind_get_extra_info(info));
  duckdb_logical_type type = duckdb_create_logical_type(DUCKDB_TYPE_DOUBLE);
  for (const Column& column : dataset.columns) duckdb_bind_add_result_column(info, column.name.c_str(), type);
  duckdb_destroy_logical_type(&type);
  duckdb_bind_set_cardinality(info, dataset.rowCount, true);
}

void initCases(duckdb_init_info info) {
  duckdb_init_set_init_data(info, new std::size_t(0), [](void* next) { delete static_cast<std::size_t*>(next); });
}

// A value that is written as missing: system-missing or NaN.
bool isMissingNumber(double value) {
  return value == kSystemMissing || std::isnan(value);
}

void copyValues(const std::vector<double>& numbers, std::size_t first, std::size_t count, duckdb_vector vector) {
  auto* target = static_cast<double*>(duckdb_vector_get_data(vector));
  std::copy_n(numbers.begin() + static_cast<std::ptrdiff_t>(first), count, target);
  if (std::none_of(target, target + count, isMissingNumber)) return;
  duckdb_vector_ensure_validity_writable(vector);
  std::uint64_t* validity = duckdb_vector_get_validity(vector);
  for (std::size_t i = 0; i < count; ++i) {
    if (isMissingNumber(target[i])) duckdb_validity_set_row_invalid(validity, i);
  }
}

void readCases(duckdb_function_info info, duckdb_data_chunk output) {
  const auto& dataset = *static_cast<const Dataset*>(duckdb_function_get_extra_info(info));
  auto& next = *static_cast<std::size_t*>(duckdb_function_get_init_data(info));
  const std::size_t count = std::min<std::size_t>(duckdb_vector_size(), dataset.rowCount - next);
  for (std::size_t i = 0; i < dataset.columns.size(); ++i) {
    copyValues(dataset.columns[i].numbers, next, count, duckdb_data_chunk_get_vector(output, i));
  }
  duckdb_data_chunk_set_size(output, count);
  next += count;
}

void registerCases(DuckdbConnection& connection, const Dataset& dataset) {
  duckdb_table_function function = duckdb_create_table_function();
  duckdb_table_function_set_name(function, "cases");
  duckdb_table_function_set_extra_info(function, const_cast<Dataset*>(&dataset), nullptr);
  duckdb_table_function_set_bind(function, bindCases);
  duckdb_table_function_set_init(function, initCases);
  duckdb_table_function_set_function(function, readCases);
  const duckdb_state state = duckdb_register_table_function(connection.get(), function);
  duckdb_destroy_table_function(&function);
  if (state != DuckDBSuccess) throw DuckdbError("DuckDB refused the cases");
}

int threadsFor(const Dataset& dataset) {
  return dataset.rowCount <= kSmallDataset ? 1 : 0;
}

// One missing value alone would be an empty line, which readers skip; an empty text is written as "".
std::string csvSelection(const Dataset& dataset) {
  const bool alone = dataset.columns.size() == 1;
  std::string list, places;
  for (const Column& column : dataset.columns) {
    const std::string separator = places.empty() ? "" : ", ";
    const std::string place = "c" + std::to_string(&column - dataset.columns.data());
    list += separator + (alone ? "coalesce(CAST(" + place + " AS VARCHAR), '')" : place) + " AS " +
            sqlIdentifier(inertText(column.name));
    places += separator + place;
  }
  return "SELECT " + list + " FROM cases() AS cases(" + places + ")";
}

}  // namespace

// DuckDB writes the shortest digits that read back as the same bits.
void writeCsv(const Dataset& dataset, const std::string& /*metadata*/, const std::filesystem::path& file) {
  DuckdbConnection connection(threadsFor(dataset));
  registerCases(connection, dataset);
  connection.query("COPY (" + csvSelection(dataset) + ") TO " + sqlText(file.string()) +
                   " (FORMAT csv, HEADER, USE_TMP_FILE false)");
}

void writeParquet(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file) {
  DuckdbConnection connection(threadsFor(dataset));
  registerCases(connection, dataset);
  connection.query("COPY (SELECT * FROM cases()) TO " + sqlText(file.string()) +
                   " (FORMAT parquet, KV_METADATA {varmodel: " + sqlText(metadata) + "})");
}

void writeDatabase(const Dataset& dataset, const std::string& metadata, const std::filesystem::path& file) {
  DuckdbConnection connection(threadsFor(dataset));
  registerCases(connection, dataset);
  std::string sql = "ATTACH " + sqlText(file.string()) + " AS target (TYPE duckdb);" +
                    "CREATE TABLE target.cases AS SELECT * FROM cases();" + "COMMENT ON TABLE target.cases IS " +
                    sqlText(metadata) + ";";
  for (const Column& column : dataset.columns) {
    sql += "COMMENT ON COLUMN target.cases." + sqlIdentifier(column.name) + " IS " + sqlText(column.label) + ";";
  }
  // Explicit, because a checkpoint that fails on the way out would fail in silence.
  connection.query(sql + "CHECKPOINT target; DETACH target;");
}

}  // namespace workbench
