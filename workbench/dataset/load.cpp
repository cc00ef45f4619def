#include "workbench/dataset/load.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/spreadsheet_text.h"
#include "workbench/base/standard_streams.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/data_file.h"
#include "workbench/dataset/duckdb_connection.h"
#include "workbench/dataset/query_guard.h"
#include "workbench/dataset/result_reader.h"
#include "workbench/dataset/source_relation.h"
#include "workbench/dataset/spooled_input.h"
#include "workbench/dataset/text_numbers.h"
#include "workbench/dataset/unreadable_file.h"
#include "workbench/dataset/workbook.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuseDatabase(DuckdbConnection& connection, const fs::path& source) {
  const std::vector<std::string> tables = attachedTables(connection);
  if (tables.empty()) {
    throw DataError("data.no-table", "^1: this database holds no table. Name another file.", dataFile(source));
  }
  throw DataError("data.several-tables",
                  "^1: this database holds several tables (^2). Name one in a query, such as SELECT * FROM ^3.",
                  dataFile(source), listed(tables), sqlIdentifier(tables.front()));
}

Dataset readAll(DuckdbResult result, const Notice& what) {
  try {
    return readResult(std::move(result));
  } catch (const DataError& error) {
    throw DataError(phrase("^1: ^2", what, error.notice()));
  }
}

// Names that a saved file wrote so that no spreadsheet runs them.
void nameAsWritten(Dataset& dataset) {
  for (Column& column : dataset.columns) column.name = asWritten(column.name);
}

Dataset loadWholeFile(DuckdbConnection& connection, const fs::path& source, const FileFormat& format) {
  try {
    const std::string relation = sourceRelation(connection, source, format);
    if (relation.empty()) refuseDatabase(connection, source);
    Dataset dataset = readAll(connection.query("SELECT * FROM " + relation), dataFile(source));
    refuseWholeLines(connection, source, dataset);
    refuseLostHeader(source, dataset);
    if (isDelimitedText(source)) nameAsWritten(dataset);
    return dataset;
  } catch (const DuckdbError& error) {
    throw unreadableFile(connection, source, error);
  }
}

// A database file with several tables has no `source`. What can be read only once becomes a table.
void createSource(DuckdbConnection& connection, const DataRequest& request, bool readOnce) {
  const fs::path& source = request.source;
  try {
    const std::string relation = sourceRelation(connection, fs::absolute(source).lexically_normal(), request.format);
    if (relation.empty()) return;
    const std::string kind = readOnce ? "TABLE" : "VIEW";
    connection.query("CREATE TEMP " + kind + " source AS SELECT * FROM " + relation);
  } catch (const DuckdbError& error) {
    throw unreadableFile(connection, source, error);
  }
}

// Adds a folder under the names that a query may use for it.
void addFolder(const fs::path& folder, std::vector<fs::path>& folders) {
  std::error_code error;
  const fs::path written = (fs::absolute(folder) / "file").lexically_normal().parent_path();
  for (const fs::path& name : {written, fs::canonical(folder, error)}) {
    const bool known = std::find(folders.begin(), folders.end(), name) != folders.end();
    if (!name.empty() && !known) folders.push_back(name);
  }
}

Notice readableFolders(const DuckdbError& error, const std::vector<fs::path>& folders) {
  if (!std::string_view(error.what()).starts_with("Permission Error")) return {};
  std::vector<std::string> names;
  for (const fs::path& folder : folders) names.push_back(folder.string());
  return folders.empty() ? phrase("\nThis query reads no files.")
                         : phrase("\nA query reads files only in ^1.", listed(names));
}

Dataset runQuery(DuckdbConnection& connection, const std::string& query, const std::vector<fs::path>& folders) {
  confine(connection, folders);
  try {
    return readResult(connection.select(checkedQuery(connection, query, folders)));
  } catch (const DuckdbError& error) {
    throw DataError(Notice("query.refused", "^1", error.what()) + readableFolders(error, folders));
  }
}

bool isRegularFile(const fs::path& file) {
  std::error_code unknown;
  return fs::is_regular_file(file, unknown);
}

// Those of whose files a query may read.
std::vector<fs::path> foldersOf(const DataRequest& request, bool readOnce) {
  std::vector<fs::path> folders;
  if (!request.source.empty() && !readOnce) addFolder(fs::absolute(request.source).parent_path(), folders);
  if (!request.jobFolder.empty()) addFolder(request.jobFolder, folders);
  return folders;
}

Dataset loadQuery(DuckdbConnection& connection, const DataRequest& request, bool readOnce) {
  if (!request.source.empty()) createSource(connection, request, readOnce);
  try {
    if (request.unsafe) return readResult(connection.query(request.query));
    return runQuery(connection, request.query, foldersOf(request, readOnce));
  } catch (const DuckdbError& error) {
    throw DataError("query.unsafe-refused", "unsafe query: ^1", error.what());
  } catch (const DataError& error) {
    throw DataError(request.source.empty() ? phrase("query: ^1", error.notice())
                                           : phrase("query over ^1: ^2", dataFile(request.source), error.notice()));
  }
}

Dataset loadFile(const DataRequest& request, bool spooled) {
  const fs::path& source = request.source;
  if (!source.empty()) requireReadableFile(source);
  DuckdbConnection connection(!source.empty() && isSmallFile(source) ? 1 : 0);
  return request.query.empty() ? loadWholeFile(connection, source, request.format)
                               : loadQuery(connection, request, spooled || !isRegularFile(source));
}

// The user never named the file that it was spooled to.
Dataset loadSpooled(DataRequest request, const SpooledInput& input, const Notice& origin) {
  request.source = input.path();
  try {
    return loadFile(request, true);
  } catch (const DataError& error) {
    const Notice own = error.notice().renamed(dataFile(input.path()).text(), origin);
    throw DataError(own.renamed(input.path().string(), origin));
  }
}

Dataset loadWorkbook(DataRequest request) {
  requireReadableFile(request.source);
  const SpooledInput input(sheetAsCsv(request.source, request.format.sheet, request.format.skip));
  const Notice origin = dataFile(request.source);
  request.format.skip = std::nullopt;
  request.format.encoding.clear();
  return loadSpooled(std::move(request), input, origin);
}

Dataset loadAny(const DataRequest& request) {
  if (request.source == kStandardStream) return loadSpooled(request, SpooledInput(), phrase("standard input"));
  return isWorkbook(request.source) ? loadWorkbook(request) : loadFile(request, false);
}

}  // namespace

std::vector<fs::path> filesOfQuery(const DataRequest& request) {
  if (request.query.empty() || request.unsafe) return {};
  const bool readOnce = request.source == kStandardStream || !isRegularFile(request.source);
  DuckdbConnection connection(1);
  const std::vector<fs::path> folders = foldersOf(request, readOnce);
  confine(connection, folders);
  return filesOfQuery(connection, request.query, folders);
}

Dataset loadDataset(const DataRequest& request) {
  if (request.source.empty() && request.query.empty()) {
    throw DataError("data.none", "no data: name a data file (source) or give a query.");
  }
  const bool piped = request.source == kStandardStream;
  Dataset dataset = loadAny(request);
  applyFormat(dataset, request.format);
  dataset.origin = piped ? "standard input" : request.source.empty() ? "query" : request.source.string();
  return dataset;
}

}  // namespace workbench
