#include "workbench/dataset/load.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/column_reader.h"
#include "workbench/dataset/duckdb_connection.h"
#include "workbench/dataset/source_relation.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

// DuckDB's message without the place in SQL that is not the user's, and without the list of its reader's settings.
std::string withoutSql(std::string message) {
  for (const char* noise : {"\n\nLINE ", "\n\n  file = "}) {
    const std::size_t place = message.find(noise);
    if (place != std::string::npos) message.erase(place);
  }
  while (!message.empty() && message.back() == '\n') message.pop_back();
  return message;
}

std::string describe(const DataRequest& request) {
  if (request.source.empty()) return "query";
  return (request.query.empty() ? "data file " : "query over data file ") + request.source.string();
}

// DuckDB's message about the first line that has more or fewer values than the header has names.
std::string firstUnequalLine(DuckdbConnection& connection, const fs::path& source, const std::string& header,
                             char delimiter) {
  std::string columns;
  for (std::ptrdiff_t i = 0; i <= std::count(header.begin(), header.end(), delimiter); ++i) {
    columns += (i == 0 ? "c" : ", c") + std::to_string(i) + ": 'VARCHAR'";
  }
  try {
    connection.query("SELECT count(c0) FROM read_csv(" + sqlFileName(source) +
                     ", header = true, auto_detect = false, " + "delim = " + sqlText({&delimiter, 1}) +
                     ", columns = {" + columns + "})");
  } catch (const DuckdbError& error) {
    return std::string("\n") + withoutSql(error.what());
  }
  return "";
}

DataError unequalLines(const fs::path& source, const std::string& header, const std::string& detail) {
  return DataError("data file " + source.string() + ": its lines do not all have as many values as its header (" +
                   header + "). Correct the file, or describe it in a query with read_csv(...)." + detail);
}

// A file whose lines do not all have as many values as the header comes back as one column of whole lines.
void refuseWholeLines(DuckdbConnection& connection, const fs::path& source, const Dataset& dataset) {
  if (dataset.columns.size() != 1 || dataset.columns[0].kind != ColumnKind::text || !isDelimitedText(source)) return;
  const std::string& header = dataset.columns[0].name;
  const std::size_t place = header.find_first_of(",;\t|");
  if (place == std::string::npos) return;
  throw unequalLines(source, header, firstUnequalLine(connection, source, header, header[place]));
}

// What DuckDB says of a file that it cannot read; where lines are unequal it tells of dialects, so the line is sought.
DataError unreadableFile(DuckdbConnection& connection, const fs::path& source, const DuckdbError& error) {
  const std::string header = plainCommaHeader(source);
  const std::string unequal = header.empty() ? "" : firstUnequalLine(connection, source, header, ',');
  if (unequal.find("Expected Number of Columns") != std::string::npos) return unequalLines(source, header, unequal);
  return DataError("data file " + source.string() + ": " + withoutSql(error.what()));
}

std::vector<ColumnReader> makeColumns(duckdb_result* result, Dataset& dataset) {
  std::vector<ColumnReader> readers;
  for (idx_t i = 0; i < duckdb_column_count(result); ++i) {
    Column column;
    column.name = duckdb_column_name(result, i);
    if (dataset.find(column.name) >= 0) {
      throw DataError("two columns are named \"" + column.name +
                      "\" (letters of either case are the same). Rename one " +
                      "in a query: SELECT ... AS other_name.");
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

Dataset readResult(duckdb_result* result) {
  if (duckdb_result_return_type(*result) != DUCKDB_RESULT_TYPE_QUERY_RESULT) {
    throw DataError("the query returns no columns. Its last statement must be a SELECT.");
  }
  Dataset dataset;
  const std::vector<ColumnReader> readers = makeColumns(result, dataset);
  while (duckdb_data_chunk chunk = duckdb_fetch_chunk(*result)) {
    const auto destroy = [](duckdb_data_chunk* c) { duckdb_destroy_data_chunk(c); };
    const std::unique_ptr<duckdb_data_chunk, decltype(destroy)> guard(&chunk, destroy);
    const idx_t count = duckdb_data_chunk_get_size(chunk);
    for (idx_t i = 0; i < readers.size(); ++i) {
      readers[i].append(duckdb_data_chunk_get_vector(chunk, i), count, dataset.columns[i]);
    }
    dataset.rowCount += count;
  }
  if (dataset.rowCount == 0) throw DataError("there are no cases in it.");
  for (Column& column : dataset.columns) finishColumn(column);
  return dataset;
}

// The relation of the source, which a query sees as `source`; "" for a database file with no or several tables.
std::string openSource(DuckdbConnection& connection, const DataRequest& request) {
  try {
    std::string relation = sourceRelation(connection, request.source);
    if (!request.query.empty() && !relation.empty()) {
      // A pipe can be read only once: it becomes a table.
      const char* kind = fs::is_regular_file(request.source) ? "VIEW" : "TABLE";
      connection.query(std::string("CREATE TEMP ") + kind + " source AS SELECT * FROM " + relation);
    }
    return relation;
  } catch (const DuckdbError& error) {
    throw unreadableFile(connection, request.source, error);
  }
}

[[noreturn]] void refuseDatabase(DuckdbConnection& connection, const fs::path& source) {
  const std::vector<std::string> tables = attachedTables(connection);
  const std::string what = "data file " + source.string() + ": this database holds ";
  if (tables.empty()) throw DataError(what + "no table.");
  throw DataError(what + "several tables (" + listed(tables) + "). Name one in a query, such as SELECT * FROM " +
                  sqlIdentifier(tables.front()) + ".");
}

// The statement that reads the data: the whole file, or the query over the view `source`.
std::string prepareStatement(DuckdbConnection& connection, const DataRequest& request) {
  if (request.source.empty()) return request.query;
  const std::string relation = openSource(connection, request);
  if (!request.query.empty()) return request.query;
  if (relation.empty()) refuseDatabase(connection, request.source);
  return "SELECT * FROM " + relation;
}

Dataset runStatement(DuckdbConnection& connection, const DataRequest& request, const std::string& statement) {
  try {
    DuckdbResult result = connection.query(statement);
    return readResult(result.get());
  } catch (const DuckdbError& error) {
    if (request.query.empty()) throw unreadableFile(connection, request.source, error);
    throw DataError(describe(request) + ": " + error.what());
  } catch (const DataError& error) {
    throw DataError(describe(request) + ": " + error.what());
  }
}

}  // namespace

Dataset loadDataset(const DataRequest& request) {
  if (request.source.empty() && request.query.empty()) {
    throw DataError("no data: name a data file (source) or give a query.");
  }
  if (!request.source.empty()) requireReadableFile(request.source);
  DuckdbConnection connection(!request.source.empty() && isSmallFile(request.source) ? 1 : 0);
  if (request.source.has_parent_path()) {  // relative file names in a query start beside the data file
    connection.query("SET file_search_path = " + sqlText(request.source.parent_path().string()));
  }
  Dataset dataset = runStatement(connection, request, prepareStatement(connection, request));
  if (request.query.empty()) refuseWholeLines(connection, request.source, dataset);
  dataset.origin = request.source.empty() ? "query" : request.source.string();
  return dataset;
}

}  // namespace workbench
