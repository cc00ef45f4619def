#include "workbench/cli/run_description.h"

#include <fmt/format.h>

#include <array>

#include "workbench/base/toml_text.h"
#include "workbench/cli/version.h"
#include "workbench/commands/common/analysed_rows.h"
#include "workbench/dates/case_label.h"

namespace workbench {

namespace {

std::string tomlDate(const DateComponents& components) {
  std::string list;
  for (const auto& [unit, value] : components)
    list += fmt::format("{}{} = {}", list.empty() ? "" : ", ", unitName(unit), value);
  return "{ " + list + " }";
}

std::string tomlColumns(const std::map<Unit, std::string>& variables) {
  std::string list;
  for (const auto& [unit, name] : variables) {
    list += fmt::format("{}{} = {}", list.empty() ? "" : ", ", unitName(unit), tomlText(name));
  }
  return "{ " + list + " }";
}

void addDictionary(const Job& job, Settings& settings) {
  constexpr std::array levels = {"", "nominal", "ordinal", "scale"};
  for (const DictionaryEntry& entry : job.dictionary) {
    const std::string key = "variables." + tomlText(entry.variable) + ".";
    if (entry.label) settings.emplace_back(key + "label", tomlText(*entry.label));
    if (entry.level) settings.emplace_back(key + "level", tomlText(levels[static_cast<std::size_t>(*entry.level)]));
    std::string list;
    for (const double value : entry.userMissing) list += (list.empty() ? "" : ", ") + tomlNumber(value);
    if (!list.empty()) settings.emplace_back(key + "missing", "[" + list + "]");
  }
}

void addDates(const Job& job, Settings& settings) {
  if (!job.dates) return;
  if (!job.dates->start.empty()) settings.emplace_back("dates.start", tomlDate(job.dates->start));
  if (!job.dates->column.empty()) settings.emplace_back("dates.column", tomlText(job.dates->column));
  if (job.dates->sort) settings.emplace_back("dates.sort", "true");
  if (job.dates->fillGaps) settings.emplace_back("dates.fill_gaps", "true");
  if (!job.dates->holidays.empty()) settings.emplace_back("dates.holidays", tomlTexts(job.dates->holidays));
  if (job.dates->exchangesDayAndMonth) settings.emplace_back("dates.exchange_day_month", "true");
  if (!job.dates->variables.empty()) settings.emplace_back("dates.variables", tomlColumns(job.dates->variables));
}

void addPredict(const Job& job, std::size_t rows, Settings& settings) {
  constexpr const char* key = "predict.thru";
  if (job.predictPeriods) {
    settings.emplace_back(key, fmt::format("{}", static_cast<long>(rows) + *job.predictPeriods));
  } else if (job.predict && job.predict->end) {
    settings.emplace_back(key, "\"end\"");
  } else if (job.predict && job.predict->caseNumber) {
    settings.emplace_back(key, fmt::format("{}", *job.predict->caseNumber));
  } else if (job.predict && !job.predict->period.empty()) {
    settings.emplace_back(key, tomlText(job.predict->period));
  } else if (job.predict) {
    settings.emplace_back(key, tomlDate(job.predict->date));
  }
}

Settings settingsOf(const Job& job, std::size_t rows) {
  Settings settings;
  if (job.scale != 1.0) settings.emplace_back("data.scale", tomlNumber(job.scale));
  for (const WrittenSetting& setting : writtenSettings(job.data.format)) {
    settings.emplace_back("data." + setting.name, setting.value());
  }
  if (job.complete) settings.emplace_back("data.complete", "true");
  if (!job.range.from.empty()) settings.emplace_back("data.from", tomlText(job.range.from));
  if (!job.range.to.empty()) settings.emplace_back("data.to", tomlText(job.range.to));
  addDictionary(job, settings);
  for (const Transformation& one : job.transformations) {
    settings.emplace_back("variables." + tomlText(one.variable) + ".transform", tomlText(one.text()));
  }
  addDates(job, settings);
  if (job.savesCases) settings.emplace_back("save_cases", "true");
  addPredict(job, rows, settings);
  if (!job.weight.empty()) settings.emplace_back("weight", tomlText(job.weight));
  if (!job.split.empty()) settings.emplace_back("split", tomlTexts(job.split));
  return settings;
}

}  // namespace

RunDescription describeRun(const Job& job, const OutputOptions& options, const JobInput& input) {
  return {.program = "varmodel",
          .version = programVersion(),
          .commandLine = options.commandLine,
          .source = job.data.source.string(),
          .query = job.data.query,
          .fingerprint = input.fingerprint,
          .rows = input.rows,
          .variables = input.variables,
          .language = options.language,
          .settings = settingsOf(job, input.call.dataset.rowCount),
          .outputs = options,
          .writtenJob = options.writtenJob,
          .exports = {},
          .seconds = {}};
}

std::optional<RowDescription> describeRows(const FinishedRun& run) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  if (!rows) return std::nullopt;
  const RowAccount& account = rows->account;
  RowDescription description{
      .read = account.read, .used = account.used, .dropped = account.dropped, .missing = {}, .first = {}, .last = {}};
  for (std::size_t i = 0; i < account.missing.size(); ++i) {
    if (account.missing[i] == 0) continue;
    const Column& column = run.input.dataset.columns[static_cast<std::size_t>(rows->columns[i])];
    description.missing.emplace_back(column.name, account.missing[i]);
  }
  if (account.used > 0) {
    description.first = caseLabel(run.input.dataset, run.input.trends, account.firstUsed);
    description.last = caseLabel(run.input.dataset, run.input.trends, account.lastUsed);
  }
  return description;
}

}  // namespace workbench
