// Facts about the submitted command that notes and hints need.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "workbench/dataset/row_account.h"
#include "workbench/session/session.h"

namespace workbench {

// Was the keyword given in this list ("MODELSTATISTICS MODELFIT", "EIGEN")?
bool requested(const Session& session, const std::string& list, const std::string& keyword);

// The columns that were analysed (endogenous and exogenous, in the order read) and what became of the rows.
struct AnalysedRows {
  std::vector<int> columns;
  RowAccount account;
};
std::optional<AnalysedRows> analysedRows(const Session& session);

// The command with MINLAG and MAXLAG both set to one lag.
std::string withFixedLag(const std::string& command, int lag);

// Largest MAXLAG (at most 25) that leaves a regular residual covariance; below 1: none.
std::int64_t largestUsableLag(std::int64_t rows, std::int64_t endogenous, std::int64_t exogenous);

}  // namespace workbench
