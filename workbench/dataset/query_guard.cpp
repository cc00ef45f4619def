#include "workbench/dataset/query_guard.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "workbench/base/errors.h"
#include "workbench/base/json.h"
#include "workbench/base/letter_case.h"
#include "workbench/base/utf8_path.h"

namespace workbench {

namespace {

namespace fs = std::filesystem;
using rapidjson::Value;

// The table functions of DuckDB that only read. Its others log, checkpoint, or run a statement that a text holds.
constexpr std::array<std::string_view, 36> kReadingFunctions = {"duckdb_columns",
                                                                "duckdb_functions",
                                                                "duckdb_settings",
                                                                "duckdb_tables",
                                                                "duckdb_types",
                                                                "duckdb_views",
                                                                "generate_series",
                                                                "glob",
                                                                "histogram",
                                                                "histogram_values",
                                                                "icu_calendar_names",
                                                                "json_each",
                                                                "json_tree",
                                                                "parquet_bloom_probe",
                                                                "parquet_file_metadata",
                                                                "parquet_kv_metadata",
                                                                "parquet_metadata",
                                                                "parquet_scan",
                                                                "parquet_schema",
                                                                "pg_timezone_names",
                                                                "range",
                                                                "read_blob",
                                                                "read_csv",
                                                                "read_csv_auto",
                                                                "read_json",
                                                                "read_json_auto",
                                                                "read_json_objects",
                                                                "read_json_objects_auto",
                                                                "read_ndjson",
                                                                "read_ndjson_auto",
                                                                "read_ndjson_objects",
                                                                "read_parquet",
                                                                "read_text",
                                                                "repeat",
                                                                "sniff_csv",
                                                                "unnest"};

std::string_view textOf(const Value& object, const char* key) {
  const auto member = object.FindMember(key);
  if (member == object.MemberEnd() || !member->value.IsString()) return {};
  return {member->value.GetString(), member->value.GetStringLength()};
}

void requireReading(std::string_view function) {
  const std::string name = lowerCase(std::string(function));
  if (std::find(kReadingFunctions.begin(), kReadingFunctions.end(), name) != kReadingFunctions.end()) return;
  throw DataError("query.function",
                  "it calls ^1(), which does more than read. Write one SELECT over source, over tables, or over files "
                  "by read_csv(...), read_parquet(...) and the like.",
                  name);
}

// Places of the file names in a query: their offsets in its text.
class FileNames {
 public:
  // Throws DataError for a table function that does more than read.
  explicit FileNames(const Value& tree) { visit(tree); }
  const std::map<std::size_t, std::string>& places() const { return places_; }

 private:
  void visit(const Value& node) {
    if (node.IsArray()) {
      for (const Value& item : node.GetArray()) visit(item);
    } else if (node.IsObject()) {
      visitObject(node);
      for (const auto& member : node.GetObject()) visit(member.value);
    }
  }

  void visitObject(const Value& node) {
    const std::string_view type = textOf(node, "type");
    if (type == "BASE_TABLE" && textOf(node, "schema_name").empty()) add(node, textOf(node, "table_name"));
    if (type != "TABLE_FUNCTION") return;
    const Value& function = node["function"];
    requireReading(textOf(function, "function_name"));
    const auto arguments = function.FindMember("children");
    if (arguments != function.MemberEnd() && !arguments->value.Empty()) visitFileArgument(arguments->value[0]);
  }

  // A text, or a list of texts.
  void visitFileArgument(const Value& argument) {
    if (textOf(argument, "class") == "CONSTANT") add(argument, textOf(argument["value"], "value"));
    const auto items = argument.FindMember("children");
    if (items == argument.MemberEnd()) return;
    for (const Value& item : items->value.GetArray()) visitFileArgument(item);
  }

  void add(const Value& node, std::string_view name) {
    const auto place = node.FindMember("query_location");
    if (!name.empty() && place != node.MemberEnd() && place->value.IsUint64()) {
      places_[place->value.GetUint64()] = std::string(name);
    }
  }

  std::map<std::size_t, std::string> places_;
};

bool holdsWildcard(const std::string& name) {
  return name.find_first_of("*?[") != std::string::npos;
}

// The full path of a relative name; "" for one that names no file of the folders.
std::string fullPath(const std::string& name, const std::vector<fs::path>& folders) {
  const fs::path file = pathFromUtf8(name);
  if (file.is_absolute() || folders.empty()) return "";
  std::error_code error;
  for (const fs::path& folder : folders) {
    if (fs::is_regular_file(folder / file, error)) return (folder / file).lexically_normal().string();
  }
  return holdsWildcard(name) ? (folders.front() / file).lexically_normal().string() : "";
}

// One past the closing quote of the quoted name at `begin`; `begin` where no plainly quoted name stands.
std::size_t endOfQuoted(const std::string& query, std::size_t begin) {
  const char quote = begin < query.size() ? query[begin] : '\0';
  if (quote != '\'' && quote != '"') return begin;
  for (std::size_t at = begin + 1; at < query.size(); ++at) {
    if (query[at] != quote) continue;
    if (at + 1 == query.size() || query[at + 1] != quote) return at + 1;
    ++at;
  }
  return begin;
}

std::string withFullPaths(std::string query, const FileNames& names, const std::vector<fs::path>& folders) {
  for (auto place = names.places().rbegin(); place != names.places().rend(); ++place) {
    const std::string path = fullPath(place->second, folders);
    const std::size_t end = endOfQuoted(query, place->first);
    if (path.empty() || end == place->first) continue;
    const char quote = query[place->first];
    query.replace(place->first, end - place->first, quote == '"' ? sqlIdentifier(path) : sqlText(path));
  }
  return query;
}

rapidjson::Document syntaxTree(DuckdbConnection& connection, const std::string& query) {
  const std::string json =
      connection.text("SELECT json_serialize_sql(" + sqlText(query) + ", skip_null := true, skip_empty := true)");
  rapidjson::Document tree;
  tree.Parse<rapidjson::kParseIterativeFlag>(json.data(), json.size());
  if (tree.HasParseError() || !tree.HasMember("error") || tree["error"].GetBool()) {
    throw DataError("query.no-select",
                    "it is not a SELECT. A query only reads: write one SELECT, such as SELECT * FROM source.");
  }
  return tree;
}

}  // namespace

std::string checkedQuery(DuckdbConnection& connection, const std::string& query, const std::vector<fs::path>& folders) {
  const std::size_t statements = connection.countStatements(query);
  if (statements == 0) {
    throw DataError("query.empty", "it holds no statement. Write one SELECT, such as SELECT * FROM source.");
  }
  if (statements > 1) {
    throw DataError("query.statements", "it holds ^1 statements. Write one SELECT, such as SELECT * FROM source.",
                    statements);
  }
  return withFullPaths(query, FileNames(syntaxTree(connection, query)), folders);
}

void confine(DuckdbConnection& connection, const std::vector<fs::path>& folders) {
  std::string list;
  for (const fs::path& folder : folders) list += (list.empty() ? "" : ", ") + sqlText(folder.string());
  connection.query("SET allowed_directories = [" + list +
                   "]; SET enable_external_access = false; SET lock_configuration = true");
}

}  // namespace workbench
