#include "workbench/dataset/unreadable_file.h"

#include <algorithm>

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

}  // namespace

void refuseWholeLines(DuckdbConnection& connection, const fs::path& source, const Dataset& dataset) {
  if (dataset.columns.size() != 1 || dataset.columns[0].kind != ColumnKind::text || !isDelimitedText(source)) return;
  const std::string& header = dataset.columns[0].name;
  const std::size_t place = header.find_first_of(",;\t|");
  if (place == std::string::npos) return;
  throw unequalLines(source, header, firstUnequalLine(connection, source, header, header[place]));
}

DataError unreadableFile(DuckdbConnection& connection, const fs::path& source, const DuckdbError& error) {
  const std::string header = plainCommaHeader(source);
  const std::string unequal = header.empty() ? "" : firstUnequalLine(connection, source, header, ',');
  if (unequal.find("Expected Number of Columns") != std::string::npos) return unequalLines(source, header, unequal);
  return DataError("data file " + source.string() + ": " + withoutSql(error.what()));
}

}  // namespace workbench
