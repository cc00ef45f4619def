#include "workbench/dataset/query_guard.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>
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
constexpr std::array<std::string_view, 35> kReadingFunctions = {"duckdb_columns",
                                                                "duckdb_functions",
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

// Those of them that read files, which their first argument names.
constexpr std::array kFileFunctions = {"parquet_", "read_", "glob", "sniff_csv"};

// What tells of the machine, or does more than compute a value.
constexpr std::array<std::string_view, 9> kClosedFunctions = {"current_setting", "currval",      "getenv",
                                                              "getvariable",     "nextval",      "pg_get_viewdef",
                                                              "setseed",         "txid_current", "write_log"};
constexpr std::array<std::string_view, 6> kClosedTables = {"duckdb_databases", "duckdb_logs", "duckdb_secrets",
                                                           "duckdb_settings",  "pg_settings", "pragma_database_list"};

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return lower;
}

template <class Names>
bool isAmong(const Names& names, const std::string& name) {
  return std::ranges::find(names, name) != names.end();
}

std::string_view textOf(const Value& object, const char* key) {
  const auto member = object.FindMember(key);
  if (member == object.MemberEnd() || !member->value.IsString()) return {};
  return {member->value.GetString(), member->value.GetStringLength()};
}

void requireReading(std::string_view function) {
  const std::string name = lowerCase(function);
  if (isAmong(kReadingFunctions, name)) return;
  throw DataError("query.function",
                  "it calls ^1(), which does more than read. Write one SELECT over source, over tables, or over files "
                  "by read_csv(...), read_parquet(...) and the like.",
                  name);
}

void requireComputing(std::string_view function) {
  const std::string name = lowerCase(function);
  if (!isAmong(kClosedFunctions, name)) return;
  throw DataError("query.closed-function", "it calls ^1(), which does more than compute a value. Leave it out.", name);
}

void requireData(std::string_view table) {
  const std::string name = lowerCase(table);
  if (!isAmong(kClosedTables, name)) return;
  throw DataError("query.closed-table", "it reads ^1, which tells of the machine and holds no data. Leave it out.",
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
    if (type == "BASE_TABLE") visitTable(node);
    if (textOf(node, "class") == "FUNCTION") requireComputing(textOf(node, "function_name"));
    if (type == "TABLE_FUNCTION") visitTableFunction(node["function"]);
  }

  // A file's name may stand in parts: "/folder/other"."csv".
  void visitTable(const Value& node) {
    std::string name(textOf(node, "table_name"));
    requireData(name);
    for (const char* outer : {"schema_name", "catalog_name"}) {
      if (const std::string_view part = textOf(node, outer); !part.empty()) name = std::string(part) + '.' + name;
    }
    if (textOf(node, "schema_name").empty() || pathFromUtf8(name).is_absolute()) add(node, name);
  }

  void visitTableFunction(const Value& function) {
    const std::string name = lowerCase(textOf(function, "function_name"));
    requireReading(name);
    const auto arguments = function.FindMember("children");
    if (arguments == function.MemberEnd() || arguments->value.Empty()) return;
    const bool ofFiles = std::ranges::any_of(kFileFunctions, [&](const char* one) { return name.starts_with(one); });
    if (ofFiles && !visitFileArgument(arguments->value[0])) {
      throw DataError("query.computed-name", "the name of the file in ^1() is computed. Write it out, in quotes.",
                      name);
    }
  }

  // A text, or a list of texts; false for anything else.
  bool visitFileArgument(const Value& argument) {
    if (textOf(argument, "class") == "CONSTANT") {
      const std::string_view name = textOf(argument["value"], "value");
      add(argument, name);
      return !name.empty();
    }
    const std::string_view function = textOf(argument, "function_name");
    const auto items = argument.FindMember("children");
    if ((function != "list_value" && function != "array_value" && textOf(argument, "type") != "ARRAY_CONSTRUCTOR") ||
        items == argument.MemberEnd()) {
      return false;
    }
    return std::ranges::all_of(items->value.GetArray(), [&](const Value& item) { return visitFileArgument(item); });
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
    if (fs::is_regular_file(folder / file, error)) return literalFileName((folder / file).lexically_normal());
  }
  if (!holdsWildcard(name)) return "";
  return (literalFileName(folders.front()) / file).lexically_normal().string();
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

// The files that a path with wildcards stands for.
std::vector<std::string> matchingFiles(DuckdbConnection& connection, const std::string& path) {
  if (path.empty()) return {};
  std::istringstream list(
      connection.text("SELECT coalesce(string_agg(file, chr(10)), '') FROM glob(" + sqlText(path) + ")"));
  std::vector<std::string> files;
  for (std::string file; std::getline(list, file);) files.push_back(file);
  return files;
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

std::vector<fs::path> filesOfQuery(DuckdbConnection& connection, const std::string& query,
                                   const std::vector<fs::path>& folders) {
  std::vector<fs::path> files;
  try {
    const rapidjson::Document tree = syntaxTree(connection, query);
    const FileNames names(tree);
    for (const auto& [place, name] : names.places()) {
      const std::string path = fs::path(name).is_absolute() ? name : fullPath(name, folders);
      std::error_code error;
      if (fs::is_regular_file(name, error) && fs::path(name).is_absolute()) files.emplace_back(name);
      for (std::string& one : matchingFiles(connection, path)) files.emplace_back(std::move(one));
    }
  } catch (const DataError&) {
    return {};
  } catch (const DuckdbError&) {
    return {};
  }
  return files;
}

void confine(DuckdbConnection& connection, const std::vector<fs::path>& folders) {
  std::string list;
  for (const fs::path& folder : folders) {
    list += (list.empty() ? "" : ", ") + sqlText(folder.string());
    if (holdsWildcard(folder.string())) list += ", " + sqlText(literalFileName(folder));
  }
  connection.query("SET allowed_directories = [" + list +
                   "]; SET enable_external_access = false; SET lock_configuration = true");
}

}  // namespace workbench
