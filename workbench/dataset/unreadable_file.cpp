#include "workbench/dataset/unreadable_file.h"

#include <algorithm>

#include "workbench/base/visible_text.h"
#include "workbench/dataset/data_file.h"
#include "workbench/dataset/file_format.h"
#include "workbench/dataset/source_relation.h"
#include "workbench/dataset/text_lines.h"
#include "workbench/dataset/text_numbers.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

// DuckDB's message without the place in SQL that is not the user's, and without the list of its reader's settings.
std::string withoutSql(std::string message) {
  for (const char* noise : {"\n\nLINE ", "\n\n  file = ", "\nPossible fixes:", "\n\nPossible Solution:"}) {
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
  return DataError(Notice("data.unequal-lines",
                          "^1: its lines do not all have as many values as its header (^2). Correct the file, or "
                          "describe it in a query with read_csv(...).",
                          dataFile(source), header) +
                   detail);
}

std::string quoted(const std::string& text) {
  return "\"" + visibleText(text) + "\"";
}

DataError textBeforeTable(const fs::path& source, const TableStart& start, const std::vector<std::string>& lines) {
  FileFormat format;
  format.skip = static_cast<long>(start.before);
  const Notice rest = start.end == lines.size() ? Notice()
                                                : phrase("Delete what follows the table, from line ^1 (^2) on.",
                                                         start.end + 1, quoted(lines[start.end]));
  return DataError(Notice("data.text-before-table", "^1: its table begins in line ^2 (^3), after other text. Give ^4.",
                          dataFile(source), start.before + 1, quoted(start.line),
                          inWords(writtenSettings(format).front())) +
                   rest);
}

// UTF-16 as its first two bytes tell.
bool isWide(const std::vector<std::string>& lines) {
  return !lines.empty() && (lines[0].starts_with("\xff\xfe") || lines[0].starts_with("\xfe\xff"));
}

// A file in another encoding than UTF-8: which, and where that shows.
DataError otherEncoding(const fs::path& source, const std::vector<std::string>& lines) {
  const std::size_t line = firstLineOutsideUtf8(lines);
  const bool wide = isWide(lines);
  const Notice place = line == 0 || wide ? Notice() : phrase(" in line ^1 (^2)", line, quoted(lines[line - 1]));
  return DataError("data.not-utf-8", "^1: its characters are not UTF-8^2. Give ^3.", dataFile(source), place,
                   inWords({"encoding", {wide ? "utf-16" : "latin1"}}));
}

// The value that DuckDB quotes in its message about one that has not the type of those before it; "" for other
// messages.
std::string unconvertedValue(const std::string& message) {
  constexpr std::string_view kBefore = "Could not convert string \"";
  const std::size_t begin = message.find(kBefore);
  if (begin == std::string::npos) return "";
  const std::size_t end = message.find("\" to '", begin);
  return message.substr(begin + kBefore.size(), end - begin - kBefore.size());
}

// The message's first lines, without DuckDB's advice on its own settings.
std::string withoutAdvice(const std::string& message) {
  return message.substr(0, message.find("\n\n"));
}

DataError unconverted(const fs::path& source, const std::string& value, const std::string& message) {
  FileFormat format;
  if (const std::optional<NumberFormat> numbers = numberFormatOf(value)) {
    format.numbers = *numbers;
  } else {
    format.missing = {value};
  }
  Notice settings;
  for (const WrittenSetting& setting : writtenSettings(format)) settings += inWords(setting);
  return DataError("data.unconverted", "^1: ^2\n^3", dataFile(source), message,
                   format.missing.empty() ? phrase("Give ^1.", settings)
                                          : phrase("If it stands for a missing value, give ^1.", settings));
}

}  // namespace

void refuseWholeLines(DuckdbConnection& connection, const fs::path& source, const Dataset& dataset) {
  if (dataset.columns.size() != 1 || dataset.columns[0].kind != ColumnKind::text || !isDelimitedText(source)) return;
  const std::string& header = dataset.columns[0].name;
  const std::vector<std::string> lines = firstLines(source);
  if (isWide(lines)) throw otherEncoding(source, lines);
  const auto start = tableStart(lines);
  if (start && start->isHeader && start->before > 0) throw textBeforeTable(source, *start, lines);
  const std::size_t place = header.find_first_of(",;\t|");
  if (place == std::string::npos) return;
  throw unequalLines(source, header, firstUnequalLine(connection, source, header, header[place]));
}

void refuseLostHeader(const fs::path& source, const Dataset& dataset) {
  const bool unnamed = dataset.columns.size() > 1 && dataset.columns[0].name == "column0" && isDelimitedText(source);
  const std::vector<std::string> lines = unnamed ? firstLines(source) : std::vector<std::string>{};
  const auto start = tableStart(lines);
  if (!start || start->before != 1 || start->isHeader) return;
  throw DataError("data.lost-header",
                  "^1: its header (^2) has another number of values than line 2 (^3). Give every column one name.",
                  dataFile(source), quoted(lines[0]), quoted(lines[1]));
}

DataError unreadableFile(DuckdbConnection& connection, const fs::path& source, const DuckdbError& error) {
  const std::string message = error.what();
  const std::vector<std::string> lines = isDelimitedText(source) ? firstLines(source) : std::vector<std::string>{};
  if (isWide(lines) || message.find("not utf-8 encoded") != std::string::npos) return otherEncoding(source, lines);
  const std::string value = unconvertedValue(message);
  if (!value.empty()) return unconverted(source, value, withoutAdvice(message));
  const auto start = tableStart(lines);
  if (start && start->isHeader && start->before > 0) return textBeforeTable(source, *start, lines);
  const std::string header = plainCommaHeader(source);
  const std::string unequal = header.empty() ? "" : firstUnequalLine(connection, source, header, ',');
  if (unequal.find("Expected Number of Columns") != std::string::npos) return unequalLines(source, header, unequal);
  return DataError("data.unreadable", "^1: ^2", dataFile(source), withoutSql(message));
}

}  // namespace workbench
