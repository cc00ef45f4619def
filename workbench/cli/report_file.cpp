#include "workbench/cli/report_file.h"

#include <fmt/core.h>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/dates/case_label.h"
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

void addRowFacts(const FinishedRun& run, std::vector<ReportFact>& facts) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  if (!rows) return;
  const RowAccount& account = rows->account;
  facts.push_back({tr("Rows"), tr("^1 read, ^2 used, ^3 dropped", account.read, account.used, account.dropped)});
  if (account.used == 0) return;
  facts.push_back({tr("Sample"), tr("^1 to ^2", caseLabel(run.input.dataset, run.input.trends, account.firstUsed),
                                    caseLabel(run.input.dataset, run.input.trends, account.lastUsed))});
}

}  // namespace

std::string reportPage(const FinishedRun& run, const std::vector<RunMessage>& messages, double seconds) {
  ReportInput input;
  input.document = &run.record.document;
  input.commandText = run.text;
  input.language = run.input.language;
  input.locale = sessionLocale();
  input.itemNotes = run.command.itemNotes(run);
  input.facts.push_back({tr("Data source"), run.input.dataset.origin});
  addRowFacts(run, input.facts);
  if (run.scale != 1.0) {
    input.facts.push_back({tr("Unit"), tr("endogenous series multiplied by ^1", fullPrecision(run.scale))});
  }
  input.facts.push_back({tr("Version"), VARMODEL_VERSION});
  input.facts.push_back({tr("Duration"), tr("^1 s", formatNumber(seconds, {.decimals = 3}, input.locale).text)});
  for (const RunMessage& message : messages) input.messages.push_back({reportKind(message.kind), message.text});
  for (const auto& file : run.record.savedFiles) input.savedFiles.push_back(file.string());
  return renderReport(input);
}

}  // namespace workbench
