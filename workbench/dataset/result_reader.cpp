#include "workbench/dataset/result_reader.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/dataset/column_reader.h"

namespace workbench {

namespace {

std::vector<ColumnReader> makeColumns(duckdb_result* result, Dataset& dataset) {
  std::vector<ColumnReader> readers;
  for (idx_t i = 0; i < duckdb_column_count(result); ++i) {
    Column column;
    column.name = duckdb_column_name(result, i);
    if (dataset.find(column.name) >= 0) {
      throw DataError("data.equal-names",
                      "two columns are named \"^1\" (letters of either case are the same). Rename one in a query: "
                      "SELECT ... AS other_name.",
                      column.name);
    }
    duckdb_logical_type type = duckdb_column_logical_type(result, i);
    const auto destroy = [](duckdb_logical_type* t) { duckdb_destroy_logical_type(t); };
    const std::unique_ptr<duckdb_logical_type, decltype(destroy)> guard(&type, destroy);
    readers.emplace_back(type, column.name);
    dataset.columns.push_back(std::move(column));
  }
  return readers;
}

void finishColumn(Column& column) {
  if (column.kind == ColumnKind::text) {
    column.level = MeasurementLevel::nominal;
    column.textWidth = 1;
    for (const std::string& text : column.texts)
      column.textWidth = std::max(column.textWidth, static_cast<int>(text.size()));
  }
}

}  // namespace

Dataset readResult(DuckdbResult result) {
  Dataset dataset;
  const std::vector<ColumnReader> readers = makeColumns(result.get(), dataset);
  while (duckdb_data_chunk chunk = duckdb_fetch_chunk(*result.get())) {
    const auto destroy = [](duckdb_data_chunk* c) { duckdb_destroy_data_chunk(c); };
    const std::unique_ptr<duckdb_data_chunk, decltype(destroy)> guard(&chunk, destroy);
    const idx_t count = duckdb_data_chunk_get_size(chunk);
    for (idx_t i = 0; i < readers.size(); ++i) {
      readers[i].append(duckdb_data_chunk_get_vector(chunk, i), count, dataset.columns[i]);
    }
    dataset.rowCount += count;
  }
  if (dataset.rowCount == 0)
    throw DataError("data.no-cases", "there are no cases in it. Give a file or a query with rows.");
  for (Column& column : dataset.columns) finishColumn(column);
  return dataset;
}

}  // namespace workbench
