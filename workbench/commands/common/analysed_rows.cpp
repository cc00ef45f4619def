#include "workbench/commands/common/analysed_rows.h"

#include <algorithm>

#include "workbench/dataset/case_value.h"
#include "workbench/dates/case_label.h"
#include "workbench/edge/texts.h"

namespace workbench {

namespace {

bool isComplete(const Dataset& dataset, std::span<const int> columns, std::size_t row, bool excludeUserMissing) {
  return std::ranges::none_of(columns, [&](int index) {
    return caseValue(dataset.columns[static_cast<std::size_t>(index)], row, excludeUserMissing) == kSystemMissing;
  });
}

}  // namespace

std::vector<int> columnsOf(const Dataset& dataset, const CallRecord& parsed, std::span<const std::string> lists) {
  std::vector<int> columns;
  for (const std::string& list : lists) {
    const auto found = parsed.requestedLists.find(list);
    if (found == parsed.requestedLists.end()) continue;
    for (const std::string& name : found->second) {
      const int column = dataset.find(name);
      if (column >= 0) columns.push_back(column);
    }
  }
  return columns;
}

std::optional<RowRun> longestCompleteRun(const Dataset& dataset, std::span<const int> columns,
                                         bool excludeUserMissing) {
  std::optional<RowRun> longest;
  std::size_t first = 0;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    if (!isComplete(dataset, columns, row, excludeUserMissing)) {
      first = row + 1;
    } else if (!longest || row - first >= longest->last - longest->first) {
      longest = RowRun{first, row};
    }
  }
  return longest;
}

std::vector<std::size_t> completeRows(const Dataset& dataset, std::span<const int> columns, bool excludeUserMissing) {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; !columns.empty() && row < dataset.rowCount; ++row) {
    if (isComplete(dataset, columns, row, excludeUserMissing)) rows.push_back(row);
  }
  return rows;
}

std::vector<std::size_t> hiddenRows(const Dataset& dataset, std::span<const int> columns, const RowRules& rules) {
  std::vector<std::size_t> incomplete;
  std::size_t behindLastComplete = 0;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    if (isComplete(dataset, columns, row, rules.excludeUserMissing)) {
      behindLastComplete = row + 1;
    } else {
      incomplete.push_back(row);
    }
  }
  if (behindLastComplete == 0) return {};
  std::erase_if(incomplete,
                [&](std::size_t row) { return row < behindLastComplete ? !rules.dropsIncomplete : rules.keepsFuture; });
  return incomplete;
}

std::optional<AnalysedRows> analysedRows(const FinishedRun& run) {
  if (run.record.passes.empty()) return std::nullopt;
  AnalysedRows rows;
  rows.columns = columnsOf(run.input.dataset, run.record, run.command.caseLists());
  if (rows.columns.empty()) return std::nullopt;
  rows.account = accountRows(run.input.dataset, rows.columns, run.record.passes.back().excludeUserMissing);
  return rows;
}

std::vector<Notice> rowNotes(const FinishedRun& run) {
  const std::optional<AnalysedRows> rows = analysedRows(run);
  if (!rows || rows->account.dropped == 0) return {};
  std::vector<Notice> notes;
  const RowAccount& account = rows->account;
  std::string why;
  for (std::size_t i = 0; i < account.missing.size(); ++i) {
    if (account.missing[i] == 0) continue;
    const Column& column = run.input.dataset.columns[static_cast<std::size_t>(rows->columns[i])];
    why += (why.empty() ? "" : ", ") + tr("^1 missing in ^2", column.name, account.missing[i]);
  }
  std::string cases;
  for (const std::int64_t offset : account.firstDropped)
    cases += (cases.empty() ? "" : ", ") + caseLabel(run.input.dataset, run.input.trends, offset);
  notes.emplace_back("rows.dropped", "Rows: ^1 read, ^2 used, ^3 dropped (^4; first dropped: ^5).", account.read,
                     account.used, account.dropped, why, cases);
  if (account.gapInside) {
    notes.emplace_back("rows.gap-inside",
                       "Dropped cases lie inside the sample: the series are joined over the gap, so that the lags next "
                       "to it span more than their number of periods.");
  }
  return notes;
}

}  // namespace workbench
