#include "workbench/dataset/row_account.h"

#include "workbench/dataset/case_value.h"

namespace workbench {

namespace {

constexpr std::size_t kDroppedShown = 3;

// Counts the case in every column in which it is missing; true when there is one.
bool countMissing(const Dataset& dataset, std::span<const int> columns, std::size_t row, bool excludeUserMissing,
                  std::vector<std::int64_t>& missing) {
  bool any = false;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = dataset.columns[static_cast<std::size_t>(columns[i])];
    if (caseValue(column, row, excludeUserMissing) != kSystemMissing) continue;
    ++missing[i];
    any = true;
  }
  return any;
}

}  // namespace

RowAccount accountRows(const Dataset& dataset, std::span<const int> columns, bool excludeUserMissing) {
  RowAccount account;
  account.read = static_cast<std::int64_t>(dataset.rowCount);
  account.missing.resize(columns.size());
  bool droppedSinceUse = false;
  for (std::size_t row = 0; row < dataset.rowCount; ++row) {
    if (countMissing(dataset, columns, row, excludeUserMissing, account.missing)) {
      ++account.dropped;
      droppedSinceUse = account.used > 0;
      if (account.firstDropped.size() < kDroppedShown) account.firstDropped.push_back(static_cast<std::int64_t>(row));
      continue;
    }
    if (account.used++ == 0) account.firstUsed = static_cast<std::int64_t>(row);
    account.lastUsed = static_cast<std::int64_t>(row);
    account.gapInside = account.gapInside || droppedSinceUse;
  }
  return account;
}

}  // namespace workbench
