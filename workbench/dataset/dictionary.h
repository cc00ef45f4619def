// Dictionary entries that a job gives to variables of the active dataset.

#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

struct DictionaryEntry {
  std::string variable;
  std::optional<std::string> label;
  std::optional<MeasurementLevel> level;
  std::vector<double> userMissing;
};

// Throws UsageError for a variable that the dataset has not, and for missing values of one that is not numeric.
void applyDictionary(Dataset& dataset, std::span<const DictionaryEntry> entries);

}  // namespace workbench
