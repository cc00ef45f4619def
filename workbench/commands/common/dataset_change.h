// Changes of the active dataset for one call, taken back when it is over.

#pragma once

#include <cstddef>
#include <map>
#include <span>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

// Columns are indexes into the dataset; those that are not numeric stay as they are.
class DatasetChange {
 public:
  explicit DatasetChange(Dataset& dataset) : dataset_(dataset) {}
  DatasetChange(const DatasetChange&) = delete;
  DatasetChange& operator=(const DatasetChange&) = delete;
  ~DatasetChange();

  // Makes the columns system-missing in these rows, so that a procedure drops them and keeps the dates of the others.
  void hide(std::span<const int> columns, std::span<const std::size_t> rows);
  // Values and user-missing values.
  void multiply(std::span<const int> columns, double factor);

 private:
  struct Original {
    std::vector<double> numbers;
    std::vector<double> userMissing;
  };
  Column* changeable(int column);

  Dataset& dataset_;
  std::map<int, Original> originals_;
};

}  // namespace workbench
