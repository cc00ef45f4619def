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
  throw UsageError(Notice("job.no-variable", "[variables.^1]: there is no variable ^1 in the data.", name) +
                   didYouMean(name, names));
}

}  // namespace

void applyDictionary(Dataset& dataset, std::span<const DictionaryEntry> entries) {
  for (const DictionaryEntry& entry : entries) {
    Column& column = columnOf(dataset, entry.variable);
    if (!entry.userMissing.empty() && column.kind != ColumnKind::number) {
      throw UsageError("job.missing-of-text",
                       "[variables.^1]: missing values are numbers, but ^2 is not numeric. Leave 'missing' out.",
                       entry.variable, column.name);
    }
    if (entry.label) column.label = *entry.label;
    if (entry.level) column.level = *entry.level;
    column.userMissing = entry.userMissing;
  }
}

}  // namespace workbench
