#include "workbench/commands/common/analysed_rows.h"

#include "workbench/dates/case_label.h"
#include "workbench/session/texts.h"

namespace workbench {

std::optional<AnalysedRows> analysedRows(const Command& command, const Session& session) {
  if (session.passes.empty()) return std::nullopt;
  AnalysedRows rows;
  for (const std::string& list : command.caseLists()) {
    const auto found = session.requestedLists.find(list);
    if (found == session.requestedLists.end()) continue;
    for (const std::string& name : found->second) {
      const int column = session.dataset.find(name);
      if (column >= 0) rows.columns.push_back(column);
    }
  }
  if (rows.columns.empty()) return std::nullopt;
  rows.account = accountRows(session.dataset, rows.columns, session.passes.back().excludeUserMissing);
  return rows;
}

std::vector<std::string> rowNotes(const FinishedRun& run) {
  const Session& session = run.session;
  const std::optional<AnalysedRows> rows = analysedRows(run.command, session);
  if (!rows || rows->account.dropped == 0) return {};
  std::vector<std::string> notes;
  const RowAccount& account = rows->account;
  std::string why;
  for (std::size_t i = 0; i < account.missing.size(); ++i) {
    if (account.missing[i] == 0) continue;
    const Column& column = session.dataset.columns[static_cast<std::size_t>(rows->columns[i])];
    why += (why.empty() ? "" : ", ") + tr("^1 missing in ^2", column.name, account.missing[i]);
  }
  std::string cases;
  for (const std::int64_t offset : account.firstDropped)
    cases += (cases.empty() ? "" : ", ") + caseLabel(session, offset);
  notes.push_back(tr("Rows: ^1 read, ^2 used, ^3 dropped (^4; first dropped: ^5).", account.read, account.used,
                     account.dropped, why, cases));
  if (account.gapInside) {
    notes.push_back(
        tr("Dropped cases lie inside the sample: the series are joined over the gap, so that the lags next to it span "
           "more than their number of periods."));
  }
  return notes;
}

}  // namespace workbench
