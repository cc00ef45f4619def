// What became of the rows that a command read.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/commands/common/command.h"
#include "workbench/dataset/row_account.h"

namespace workbench {

// The columns that a case must hold (in the order listed) and what became of the cases.
struct AnalysedRows {
  std::vector<int> columns;
  RowAccount account;
};

// Nothing when the procedure read no cases.
std::optional<AnalysedRows> analysedRows(const Command& command, const Session& session);

// How many rows were read, used and dropped, and why; none when all were used.
std::vector<std::string> rowNotes(const FinishedRun& run);

}  // namespace workbench
