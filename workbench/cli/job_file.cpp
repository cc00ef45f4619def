#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iostream>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/standard_streams.h"
#include "workbench/base/suggest.h"
#include "workbench/base/utf8_path.h"
#include "workbench/cli/data_options.h"
#include "workbench/cli/job.h"
#include "workbench/cli/open_quote.h"
#include "workbench/cli/options.h"
#include "workbench/cli/toml_reader.h"
#include "workbench/export/chart_files.h"
#include "workbench/export/table_files.h"

namespace workbench {

namespace {

std::vector<std::string_view> unitWords() {
  std::vector<std::string_view> words;
  for (int code = static_cast<int>(Unit::year); code <= static_cast<int>(Unit::observation); ++code) {
    words.push_back(unitName(static_cast<Unit>(code)));
  }
  return words;
}

constexpr std::size_t kMostMebibytes = 4;
constexpr std::size_t kMostKeyParts = 16;

// Not more than a job file may have, whatever comes.
std::string textOf(std::istream& stream, const Notice& name) {
  std::string text((kMostMebibytes << 20U) + 1, '\0');
  stream.read(text.data(), static_cast<std::streamsize>(text.size()));
  if (stream.gcount() == static_cast<std::streamsize>(text.size())) {
    throw UsageError("job.too-large",
                     "^1 has more than ^2 MiB, which no job file has. For data: varmodel fit FILE --endogenous A B.",
                     name, kMostMebibytes);
  }
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

std::string readText(const std::filesystem::path& file) {
  if (file == kStandardStream) return textOf(std::cin, phrase("standard input"));
  std::error_code unknown;
  if (std::filesystem::is_directory(file, unknown)) {
    throw UsageError("job.folder", "^1 is a folder. Name a job file in it.", file);
  }
  errno = 0;
  std::ifstream stream(file, std::ios::binary);
  if (!stream && errno != ENOENT && errno != ENOTDIR) {
    throw DataError("job.unreadable", "job file ^1 cannot be read: ^2.", file, std::strerror(errno));
  }
  if (!stream) {
    throw UsageError("job.no-file", "there is no job file ^1. Give the path of a TOML file, such as job.toml.", file);
  }
  return textOf(stream, file);
}

// How messages call the job file.
Notice nameOf(const std::filesystem::path& file) {
  return file == kStandardStream ? phrase("standard input") : Notice(file);
}

// Files that data come in; a job file may have any other name.
void requireNoData(const std::filesystem::path& file) {
  constexpr std::array<std::string_view, 8> endings = {".csv",    ".tsv", ".parquet", ".json",
                                                       ".duckdb", ".db",  ".xlsx",    ".gz"};
  if (std::ranges::count(endings, file.extension().string()) == 0) return;
  throw UsageError("job.data-file",
                   "^1 is a data file, and run takes a job file. For data: varmodel fit ^1 --endogenous A B.", file);
}

Notice faultOf(const toml::parse_error& error, const std::string& text, const Notice& file) {
  if (const auto open = findOpenQuote(text)) {
    return Notice("job.open-quote", "^1, line ^2, column ^3: the quote ^4 is opened here and never closed. Close it.",
                  file, open->line, open->column, open->quote);
  }
  const auto place = error.source().begin;
  return Notice("job.toml", "^1, line ^2, column ^3: ^4", file, place.line, place.column,
                std::string(error.description()));
}

toml::table parseToml(const std::filesystem::path& file) {
  requireNoData(file);
  const std::string text = readText(file);
  if (const auto line = findDeepKey(text, kMostKeyParts)) {
    throw UsageError("job.deep-key",
                     "^1, line ^2: this key has more than ^3 parts. Those of a job file have at most three, such as "
                     "variables.infl.label.",
                     nameOf(file), *line, kMostKeyParts);
  }
  try {
    return toml::parse(text, file.string());
  } catch (const toml::parse_error& error) {
    throw UsageError(faultOf(error, text, nameOf(file)));
  }
}

MeasurementLevel levelOf(const TomlSection& section, const std::string& word) {
  if (word == "scale") return MeasurementLevel::scale;
  if (word == "ordinal") return MeasurementLevel::ordinal;
  if (word == "nominal") return MeasurementLevel::nominal;
  section.fail("level", Notice("job.level", "must be \"scale\", \"ordinal\" or \"nominal\"."));
}

void readDictionary(const TomlSection& top, Job& job) {
  const auto variables = top.section("variables", {});
  if (!variables) return;
  for (const std::string& name : variables->keys()) {
    const auto section = variables->section(name, {"label", "level", "missing", "transform"});
    DictionaryEntry entry;
    entry.variable = name;
    entry.label = section->text("label");
    if (const auto word = section->text("level")) entry.level = levelOf(*section, *word);
    if (auto missing = section->numbers("missing")) entry.userMissing = std::move(*missing);
    job.dictionary.push_back(std::move(entry));
    if (const auto how = section->text("transform")) job.transformations.push_back(transformationOf(name, *how));
  }
}

DateComponents readComponents(const TomlSection& section) {
  DateComponents components;
  for (const std::string& word : section.keys()) components[*unitFromName(word)] = *section.integer(word);
  return components;
}

void readDates(const TomlSection& top, Job& job) {
  const auto section =
      top.section("dates", {"start", "column", "variables", "sort", "fill_gaps", "exchange_day_month", "holidays"});
  if (!section) return;
  if (int{section->has("start")} + int{section->has("column")} + int{section->has("variables")} != 1) {
    top.fail("dates", Notice("job.dates", "must hold exactly one of start, column and variables."));
  }
  DatesRequest request;
  if (const auto start = section->section("start", unitWords())) request.start = readComponents(*start);
  if (const auto column = section->text("column")) request.column = *column;
  if (const auto variables = section->section("variables", unitWords())) {
    for (const std::string& word : variables->keys()) request.variables[*unitFromName(word)] = *variables->text(word);
  }
  request.sort = section->flag("sort").value_or(false);
  request.fillGaps = section->flag("fill_gaps").value_or(false);
  request.exchangesDayAndMonth = section->flag("exchange_day_month").value_or(false);
  request.holidays = section->texts("holidays").value_or(std::vector<std::string>{});
  job.dates = std::move(request);
}

void readPredict(const TomlSection& top, Job& job) {
  const auto section = top.section("predict", {"thru"});
  if (!section) return;
  const toml::node* thru = section->node("thru");
  if (thru == nullptr)
    top.fail("predict",
             Notice("job.predict",
                    "needs thru: a period such as \"2011Q4\" or { year = 2011, quarter = 4 }, a case number, or "
                    "\"end\"."));
  PredictRequest request;
  if (thru->is_table()) {
    request.date = readComponents(*section->section("thru", unitWords()));
  } else if (thru->is_integer()) {
    request.caseNumber = section->integer("thru");
  } else if (thru->is_string() && section->text("thru") == "end") {
    request.end = true;
  } else if (thru->is_string() && !section->text("thru")->empty()) {
    request.period = *section->text("thru");
  } else {
    section->fail("thru",
                  Notice("job.predict-thru",
                         "must be a period such as \"2011Q4\" or { year = 2011, quarter = 4 }, a case number, or "
                         "\"end\"."));
  }
  job.predict = std::move(request);
}

FileFormat readFormat(const TomlSection& section) {
  DataOptions options;
  options.decimal = section.text("decimal").value_or("");
  options.thousands = section.text("thousands").value_or("");
  options.missing = section.texts("na").value_or(std::vector<std::string>{});
  options.skip = section.integer("skip");
  options.encoding = section.text("encoding").value_or("");
  options.sheet = section.text("sheet").value_or("");
  if (options.skip && *options.skip < 0)
    section.fail("skip", Notice("job.skip", "must be a number of lines, such as 3."));
  return formatFrom(options);
}

void readData(const TomlSection& top, Job& job) {
  const auto section = top.section("data", {"source", "query", "scale", "complete", "decimal", "thousands", "na",
                                            "skip", "encoding", "sheet", "from", "to"});
  if (!section) {
    throw UsageError("job.no-data", "^1: there is no [data] section with a source. Add [data] and source = \"FILE\".",
                     nameOf(job.file));
  }
  if (const auto source = section->text("source")) {
    job.data.source =
        *source == kStandardStream ? std::filesystem::path(*source) : job.baseFolder / pathFromUtf8(*source);
  }
  job.data.jobFolder = job.baseFolder.empty() ? "." : job.baseFolder;
  if (const auto query = section->text("query")) job.data.query = *query;
  if (job.data.source.empty() && job.data.query.empty()) {
    top.fail("data", Notice("job.no-source", "needs a source (a data file) or a query."));
  }
  job.data.format = readFormat(*section);
  job.range = {section->text("from").value_or(""), section->text("to").value_or("")};
  if (const auto scale = section->number("scale")) {
    if (!(*scale > 0.0) || std::isinf(*scale))
      section->fail("scale", Notice("job.scale", "must be a positive number, such as 100."));
    job.scale = *scale;
  }
  job.complete = section->flag("complete").value_or(false);
  if (job.file == kStandardStream && job.data.source == kStandardStream) {
    section->fail("source", Notice("job.source-twice",
                                   "cannot be standard input, which the job is read from. Name a data file."));
  }
}

void readJobs(const TomlSection& top, Job& job) {
  const auto jobs = top.integer("jobs");
  if (!jobs) return;
  if (*jobs < 1 || *jobs > kMostJobs) {
    top.fail("jobs", Notice("job.jobs", "must be a number of threads from 1 to ^1, such as 2.", kMostJobs));
  }
  job.jobs = static_cast<int>(*jobs);
}

std::vector<std::string> readFormats(const TomlSection& section, const char* key,
                                     const std::vector<std::string>& known) {
  const std::vector<std::string> formats = section.textOrTexts(key).value_or(std::vector<std::string>{});
  for (const std::string& format : formats) {
    if (std::ranges::count(known, format) == 0)
      section.fail(key, Notice("job.format", "must be of: ^1.", listed(known)));
  }
  return formats;
}

void readOutputs(const TomlSection& top, Job& job) {
  const auto section = top.section("output", {"html", "json", "trace", "tables", "table_format", "charts",
                                              "chart_format", "title", "author", "note"});
  if (!section) return;
  OutputNames& outputs = job.outputs;
  const auto path = [&](const char* key) -> std::filesystem::path {
    const std::string name = section->text(key).value_or("");
    return name.empty() || name == kStandardStream ? std::filesystem::path(name) : job.baseFolder / pathFromUtf8(name);
  };
  outputs = {.html = path("html"),
             .json = path("json"),
             .trace = path("trace"),
             .tables = path("tables"),
             .tableFormats = readFormats(*section, "table_format", tableFormatWords()),
             .charts = path("charts"),
             .chartFormats = readFormats(*section, "chart_format", chartFormatWords()),
             .title = section->text("title").value_or(""),
             .author = section->text("author").value_or(""),
             .note = section->text("note").value_or("")};
  for (const auto& [formats, folder] : {std::pair{"table_format", "tables"}, {"chart_format", "charts"}}) {
    if (section->has(formats) && !section->has(folder)) {
      section->fail(formats, Notice("job.no-folder", "needs ^1, a folder.", folder));
    }
  }
}

}  // namespace

Job readJobFile(const std::filesystem::path& file) {
  const toml::table table = parseToml(file);
  const TomlSection top(
      table, nameOf(file), "",
      {"command", "data", "variables", "dates", "predict", "weight", "split", "jobs", "save_cases", "output"});
  Job job;
  job.file = file;
  job.baseFolder = file.parent_path();
  const auto command = top.text("command");
  if (!command) {
    throw UsageError("job.no-command",
                     "^1: there is no 'command' with the text of the command. Add command = '''VARMODEL ...'''.",
                     nameOf(file));
  }
  job.command = *command;
  readData(top, job);
  readDictionary(top, job);
  readDates(top, job);
  readPredict(top, job);
  readJobs(top, job);
  job.savesCases = top.flag("save_cases").value_or(false);
  readOutputs(top, job);
  if (const auto weight = top.text("weight")) job.weight = *weight;
  if (auto split = top.texts("split")) job.split = std::move(*split);
  return job;
}

}  // namespace workbench
