#include "workbench/dataset/source_relation.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <optional>
#include <string_view>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/letter_case.h"
#include "workbench/base/suggest.h"
#include "workbench/dataset/data_file.h"
#include "workbench/dataset/text_lines.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t kSmallFile = 8 << 20;

// DuckDB finds a column's type from its first rows and then rounds what does not fit: 0.5 in a column that began with
// integers would silently become 1. Up to this size all rows are looked at; in larger files integers are read as
// 64-bit floats.
constexpr std::uintmax_t kWhollySampledCsv = 1 << 20;

constexpr std::array kMissingWords{"", "NA", "N/A", "#N/A", ".", "NULL", "null"};

bool isCompressed(const fs::path& source) {
  const std::string extension = source.extension().string();
  return extension == ".gz" || extension == ".zst";
}

enum class FileKind { csv, parquet, json, database };

std::string lowerExtension(fs::path path) {
  std::string extension = path.extension().string();
  if (extension == ".gz" || extension == ".zst") extension = path.replace_extension().extension().string();
  return lowerCase(extension);
}

std::optional<FileKind> kindByExtension(const fs::path& source) {
  struct Entry {
    std::string_view extension;
    FileKind kind;
  };
  static constexpr std::array<Entry, 12> kEntries{{{".csv", FileKind::csv},
                                                   {".tsv", FileKind::csv},
                                                   {".txt", FileKind::csv},
                                                   {".dat", FileKind::csv},
                                                   {".parquet", FileKind::parquet},
                                                   {".pq", FileKind::parquet},
                                                   {".json", FileKind::json},
                                                   {".jsonl", FileKind::json},
                                                   {".ndjson", FileKind::json},
                                                   {".duckdb", FileKind::database},
                                                   {".ddb", FileKind::database},
                                                   {".db", FileKind::database}}};
  const std::string extension = lowerExtension(source);
  const auto* entry =
      std::find_if(kEntries.begin(), kEntries.end(), [&](const Entry& e) { return e.extension == extension; });
  return entry == kEntries.end() ? std::nullopt : std::optional(entry->kind);
}

std::string headOf(const fs::path& source, std::size_t size) {
  std::string head(size, '\0');
  std::ifstream stream(source, std::ios::binary);
  stream.read(head.data(), static_cast<std::streamsize>(size));
  head.resize(static_cast<std::size_t>(stream.gcount()));
  return head;
}

// Of a file with an unknown extension; a pipe is not touched.
FileKind kindByContent(const fs::path& source) {
  std::error_code unknown;
  if (!fs::is_regular_file(source, unknown)) return FileKind::csv;
  const std::string head = headOf(source, 4096);
  if (head.starts_with("PAR1")) return FileKind::parquet;
  if (head.size() > 12 && head.substr(8, 4) == "DUCK") return FileKind::database;
  if (head.find('\0') != std::string::npos) {
    throw DataError("data.binary", "^1: this is a binary file of unknown kind. Save it as CSV, Parquet or JSON.",
                    dataFile(source));
  }
  return FileKind::csv;
}

FileKind kindOf(const fs::path& source) {
  const std::optional<FileKind> named = kindByExtension(source);
  return named ? *named : kindByContent(source);
}

std::uintmax_t sizeOf(const fs::path& source) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(source, error);
  return error ? std::numeric_limits<std::uintmax_t>::max() : size;
}

// What the user told of the file, as arguments of DuckDB's reader.
std::string formatArguments(const FileFormat& format) {
  std::string words;
  for (const char* word : kMissingWords) words += (words.empty() ? "" : ", ") + sqlText(word);
  for (const std::string& word : format.missing) words += ", " + sqlText(word);
  std::string arguments = ", nullstr = [" + words + "]";
  const NumberFormat& numbers = format.numbers;
  if (numbers.decimal != '.') arguments += ", decimal_separator = " + sqlText({&numbers.decimal, 1});
  if (numbers.thousands != '\0') arguments += ", thousands = " + sqlText({&numbers.thousands, 1});
  if (format.skip) arguments += ", skip = " + std::to_string(*format.skip);
  if (!format.encoding.empty()) arguments += ", encoding = " + sqlText(encodingName(format.encoding));
  return arguments;
}

std::vector<std::string> textColumn(duckdb_result* result) {
  std::vector<std::string> texts;
  while (duckdb_data_chunk chunk = duckdb_fetch_chunk(*result)) {
    auto* values = static_cast<duckdb_string_t*>(duckdb_vector_get_data(duckdb_data_chunk_get_vector(chunk, 0)));
    for (idx_t row = 0; row < duckdb_data_chunk_get_size(chunk); ++row) {
      texts.emplace_back(duckdb_string_t_data(&values[row]), duckdb_string_t_length(values[row]));
    }
    duckdb_destroy_data_chunk(&chunk);
  }
  return texts;
}

// As firstLines() of the decompressed file, without the lines to be skipped.
std::vector<std::string> decompressedLines(DuckdbConnection& connection, const fs::path& source,
                                           const FileFormat& format) {
  try {
    return textColumn(connection
                          .query("SELECT coalesce(line, '') FROM read_csv(" + sqlFileName(source) +
                                 ", auto_detect = false, header = false, delim = '\x01', quote = '', escape = '', "
                                 "columns = {line: 'VARCHAR'}, skip = " +
                                 std::to_string(format.skip.value_or(0)) + ") LIMIT 1000")
                          .get());
  } catch (const DuckdbError&) {
    return {};  // reading the table itself fails alike, with the better message
  }
}

// The lines that tell the separator: those from the header on.
std::vector<std::string> linesOfTable(DuckdbConnection& connection, const fs::path& source, const FileFormat& format) {
  if (!fs::is_regular_file(source)) return {};
  if (isCompressed(source)) return decompressedLines(connection, source, format);
  std::vector<std::string> lines = firstLines(source);
  const auto above = std::min(static_cast<std::size_t>(format.skip.value_or(0)), lines.size());
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(above));
  return lines;
}

// DuckDB takes the separator that gives the most columns of numbers: of "gdp;rate" above "1,31;2,5" it would be the
// comma, with the header lost.
std::string dialectArguments(DuckdbConnection& connection, const fs::path& source, const FileFormat& format) {
  if (!format.describesText() && !plainCommaHeader(source).empty())
    return R"(, delim = ',', quote = '"', escape = '"')";
  const std::optional<char> separator = commonSeparator(linesOfTable(connection, source, format));
  return separator ? ", delim = " + sqlText({&*separator, 1}) : "";
}

std::string csvRelation(DuckdbConnection& connection, const fs::path& source, const FileFormat& format) {
  const bool small = !isCompressed(source) && sizeOf(source) <= kWhollySampledCsv;
  return "read_csv(" + sqlFileName(source) + ", auto_type_candidates = ['BOOLEAN', " + (small ? "'BIGINT', " : "") +
         "'DOUBLE', 'DATE', 'TIMESTAMP', 'TIMESTAMPTZ', 'VARCHAR']" + (small ? ", sample_size = -1" : "") +
         dialectArguments(connection, source, format) + formatArguments(format) + ")";
}

// Qualified and quoted names of the tables in the attached file.
std::vector<std::string> tableNames(DuckdbConnection& connection, const char* expression) {
  DuckdbResult tables =
      connection.query(std::string("SELECT ") + expression +
                       " FROM duckdb_tables() WHERE database_name = 'file' AND NOT internal ORDER BY 1");
  return textColumn(tables.get());
}

std::string databaseRelation(DuckdbConnection& connection, const fs::path& source) {
  connection.query("ATTACH " + sqlText(source.string()) + " AS file (READ_ONLY, TYPE duckdb); USE file;");
  const auto tables = tableNames(
      connection,
      "'file.\"' || replace(schema_name, '\"', '\"\"') || '\".\"' || replace(table_name, '\"', '\"\"') || '\"'");
  return tables.size() == 1 ? tables.front() : "";
}

Notice nearestNeighbour(const fs::path& source) {
  const fs::path folder = source.has_parent_path() ? source.parent_path() : fs::path(".");
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    names.push_back(entry->path().filename().string());
  }
  return didYouMean(source.filename().string(), names);
}

}  // namespace

void requireReadableFile(const fs::path& source) {
  const Notice what = dataFile(source);
  std::error_code error;
  const fs::file_status status = fs::status(source, error);
  if (status.type() == fs::file_type::not_found) {
    throw DataError(Notice("data.no-file", "^1: there is no such file.", what) + nearestNeighbour(source));
  }
  if (error) {
    throw DataError("data.unreachable", "^1: it cannot be read: ^2. Check the path.", what, error.message());
  }
  if (fs::is_directory(status)) throw DataError("data.folder", "^1: this is a folder. Name one file in it.", what);
  errno = 0;
  if (fs::is_regular_file(status) && !std::ifstream(source)) {
    const bool many = errno == EMFILE || errno == ENFILE;
    throw DataError("data.permission", "^1: it cannot be read: ^2. ^3", what, std::strerror(errno),
                    many ? phrase("Let the program open more files (ulimit -n).") : phrase("Check its permissions."));
  }
}

bool isDelimitedText(const fs::path& source) {
  std::error_code unknown;
  return fs::is_regular_file(source, unknown) && kindOf(source) == FileKind::csv;
}

// Nothing in the file's head speaks for another separator, quote or comment sign. DuckDB then need not try all
// dialects, which takes most of the time that a small file needs (35 of 40 ms for 2,000 rows of 8).
std::string plainCommaHeader(const fs::path& source) {
  constexpr std::size_t kHead = 64 << 10;
  if (!isDelimitedText(source)) return "";
  const std::string head = headOf(source, kHead);
  std::string header = head.substr(0, head.find_first_of("\r\n"));
  const bool plain = header.find(',') != std::string::npos && header.find_first_of(";\t|") == std::string::npos &&
                     head.find_first_of("'\\#") == std::string::npos;
  return plain ? header : "";
}

bool isSmallFile(const fs::path& source) {
  return sizeOf(source) <= kSmallFile;
}

std::string sourceRelation(DuckdbConnection& connection, const fs::path& source, const FileFormat& format) {
  switch (kindOf(source)) {
    case FileKind::parquet:
      return "read_parquet(" + sqlFileName(source) + ")";
    case FileKind::json:
      return "read_json_auto(" + sqlFileName(source) + ", sample_size = -1)";
    case FileKind::database:
      return databaseRelation(connection, source);
    case FileKind::csv:
      break;
  }
  return csvRelation(connection, source, format);
}

std::vector<std::string> attachedTables(DuckdbConnection& connection) {
  return tableNames(connection, "table_name");
}

}  // namespace workbench
