// The rows that a command reads, and what became of them.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/commands/common/command.h"
#include "workbench/dataset/row_account.h"

namespace workbench {

// The columns of the variables in these parameters of a parsed command, in their order.
std::vector<int> columnsOf(const Dataset& dataset, const CallRecord& parsed, std::span<const std::string> lists);

// The longest run of rows that hold all these columns, as offsets; the later of two that are equally long. Nothing when
// no row does.
struct RowRun {
  std::size_t first = 0;
  std::size_t last = 0;  // included
};
std::optional<RowRun> longestCompleteRun(const Dataset& dataset, std::span<const int> columns, bool excludeUserMissing);

// The rows that hold all these columns; none without columns.
std::vector<std::size_t> completeRows(const Dataset& dataset, std::span<const int> columns, bool excludeUserMissing);

struct RowRules {
  bool excludeUserMissing = true;
  bool dropsIncomplete = false;  // also before and between complete rows
  bool keepsFuture = false;      // rows after the last complete one are read
};

// The incomplete rows that a procedure must not see any value of; none when no row is complete.
std::vector<std::size_t> hiddenRows(const Dataset& dataset, std::span<const int> columns, const RowRules& rules);

// The columns that a case must hold and what became of the cases.
struct AnalysedRows {
  std::vector<int> columns;
  RowAccount account;
};

// Nothing when the procedure read no cases.
std::optional<AnalysedRows> analysedRows(const FinishedRun& run);

// How many rows were read, used and dropped, and why; none when all were used.
std::vector<Notice> rowNotes(const FinishedRun& run);

}  // namespace workbench
