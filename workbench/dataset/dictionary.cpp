#include "workbench/dataset/dictionary.h"

#include "workbench/base/errors.h"
#include "workbench/base/suggest.h"

namespace workbench {

namespace {

Column& columnOf(Dataset& dataset, const std::string& name) {
  const int column = dataset.find(name);
  if (column >= 0) return dataset.columns[static_cast<std::size_t>(column)];
  std::vector<std::string> names;
  for (const Column& candidate : dataset.columns) names.push_back(candidate.name);
  throw UsageError("[variables." + name + "]: there is no variable " + name + " in the data." +
                   didYouMean(name, names));
}

}  // namespace

void applyDictionary(Dataset& dataset, std::span<const DictionaryEntry> entries) {
  for (const DictionaryEntry& entry : entries) {
    Column& column = columnOf(dataset, entry.variable);
    if (!entry.userMissing.empty() && column.kind != ColumnKind::number) {
      throw UsageError("[variables." + entry.variable + "]: missing values are numbers, but " + column.name +
                       " is not numeric. Leave 'missing' out.");
    }
    if (entry.label) column.label = *entry.label;
    if (entry.level) column.level = *entry.level;
    column.userMissing = entry.userMissing;
  }
}

}  // namespace workbench
