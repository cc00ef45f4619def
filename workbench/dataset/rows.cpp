#include "workbench/dataset/rows.h"

#include <utility>
#include <vector>

namespace workbench {

namespace {

template <class Value>
void take(std::vector<Value>& values, std::span<const std::size_t> rows, const Value& missing) {
  if (values.empty()) return;
  std::vector<Value> taken;
  taken.reserve(rows.size());
  for (const std::size_t row : rows) taken.push_back(row == kEmptyRow ? missing : values[row]);
  values = std::move(taken);
}

}  // namespace

void takeRows(Dataset& dataset, std::span<const std::size_t> rows) {
  for (Column& column : dataset.columns) {
    take(column.numbers, rows, kSystemMissing);
    take(column.texts, rows, std::string());
    take(column.instants, rows, kMissingInstant);
  }
  dataset.rowCount = rows.size();
}

}  // namespace workbench
