#include "workbench/cli/report_file.h"

#include "workbench/base/shell_word.h"
#include "workbench/edge/texts.h"
#include "workbench/render/number_format.h"
#include "workbench/report/report.h"

namespace workbench {

namespace {

ReportMessage::Kind reportKind(RunMessage::Kind kind) {
  switch (kind) {
    case RunMessage::Kind::error:
      return ReportMessage::Kind::error;
    case RunMessage::Kind::warning:
      return ReportMessage::Kind::warning;
    case RunMessage::Kind::hint:
      return ReportMessage::Kind::hint;
    case RunMessage::Kind::note:
      break;
  }
  return ReportMessage::Kind::note;
}

std::vector<ReportFact> factsOf(const RunDescription& description) {
  std::vector<ReportFact> facts = {{tr("Data source"), description.source}};
  if (!description.query.empty()) facts.push_back({tr("Query"), description.query});
  facts.push_back({tr("Data read"), tr("^1 rows, ^2 variables", description.rows, description.variables)});
  facts.push_back({tr("SHA-256 of the values"), description.fingerprint});
  for (const auto& [key, value] : description.settings) facts.push_back({key, value});
  facts.push_back({tr("Command line"), shellWords(description.commandLine)});
  facts.push_back({tr("Version"), description.program + " " + description.version});
  for (const auto& [stage, seconds] : description.seconds) {
    facts.push_back({stage, tr("^1 s", formatNumber(seconds, {.decimals = 3}, currentLanguage()).text)});
  }
  std::erase_if(facts, [](const ReportFact& fact) { return fact.value.empty(); });
  return facts;
}

std::string whyMissing(const RowDescription& rows) {
  std::string why;
  for (const auto& [variable, times] : rows.missing) {
    why += (why.empty() ? "" : ", ") + tr("^1 missing in ^2", variable, times);
  }
  return why.empty() ? "" : " (" + why + ")";
}

std::vector<ReportFact> factsOf(const FinishedRun& run) {
  std::vector<ReportFact> facts;
  if (const auto rows = describeRows(run)) {
    facts.push_back(
        {tr("Rows"), tr("^1 read, ^2 used, ^3 dropped", rows->read, rows->used, rows->dropped) + whyMissing(*rows)});
    if (rows->used > 0) facts.push_back({tr("Sample"), tr("^1 to ^2", rows->first, rows->last)});
  }
  if (run.scale != 1.0) {
    facts.push_back({tr("Unit"), tr("endogenous series multiplied by ^1", fullPrecision(run.scale))});
  }
  return facts;
}

ReportOutput outputOf(const ToldRun& told) {
  ReportOutput output{.document = &told.run.record.document,
                      .commandText = told.run.text,
                      .view = told.view,
                      .facts = factsOf(told.run),
                      .savedFiles = {}};
  for (const auto& file : told.run.record.savedFiles) output.savedFiles.push_back(file.string());
  return output;
}

}  // namespace

std::string reportPage(const RunDescription& description, const std::vector<ToldRun>& runs) {
  ReportInput input{.outputs = {},
                    .facts = factsOf(description),
                    .messages = {},
                    .title = description.outputs.title,
                    .author = description.outputs.author,
                    .note = description.outputs.note,
                    .language = currentLanguage()};
  for (const ToldRun& told : runs) {
    input.outputs.push_back(outputOf(told));
    for (const RunMessage& message : told.messages) {
      input.messages.push_back({reportKind(message.kind), message.shown()});
    }
  }
  return renderReport(input);
}

}  // namespace workbench
