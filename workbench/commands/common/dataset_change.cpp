#include "workbench/commands/common/dataset_change.h"

#include <utility>

namespace workbench {

DatasetChange::~DatasetChange() {
  for (auto& [index, original] : originals_) {
    Column& column = dataset_.columns[static_cast<std::size_t>(index)];
    column.numbers = std::move(original.numbers);
    column.userMissing = std::move(original.userMissing);
  }
}

Column* DatasetChange::changeable(int index) {
  Column& column = dataset_.columns[static_cast<std::size_t>(index)];
  if (column.kind != ColumnKind::number) return nullptr;
  originals_.try_emplace(index, Original{column.numbers, column.userMissing});
  return &column;
}

void DatasetChange::hide(std::span<const int> columns, std::span<const std::size_t> rows) {
  if (rows.empty()) return;
  for (const int index : columns) {
    Column* column = changeable(index);
    if (column == nullptr) continue;
    for (const std::size_t row : rows) column->numbers[row] = kSystemMissing;
  }
}

void DatasetChange::multiply(std::span<const int> columns, double factor) {
  if (factor == 1.0) return;
  for (const int index : columns) {
    Column* column = changeable(index);
    if (column == nullptr) continue;
    for (double& value : column->numbers) {
      if (value != kSystemMissing) value *= factor;
    }
    for (double& value : column->userMissing) value *= factor;
  }
}

}  // namespace workbench
