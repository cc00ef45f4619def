#include "workbench/cli/data_notes.h"

#include <algorithm>

#include "workbench/base/standard_streams.h"
#include "workbench/base/visible_text.h"
#include "workbench/dataset/header_names.h"
#include "workbench/dataset/suspicious_values.h"
#include "workbench/dataset/text_numbers.h"
#include "workbench/dates/case_label.h"
#include "workbench/edge/texts.h"
#include "workbench/render/number_format.h"

namespace workbench {

namespace {

std::string rowList(const std::vector<std::size_t>& rows) {
  constexpr std::size_t kShown = 5;
  std::string list;
  for (std::size_t i = 0; i < std::min(rows.size(), kShown); ++i) {
    list += (list.empty() ? "" : ", ") + std::to_string(rows[i] + 1);
  }
  return rows.size() > kShown ? tr("^1 and ^2 more", list, rows.size() - kShown) : list;
}

std::string textNumbersNote(const Job& job, const TextNumbers& found) {
  std::string columns;
  for (const TextNumber& one : found.columns) {
    columns += (columns.empty() ? "" : ", ") + tr("^1 (row ^2 holds \"^3\")", one.column, one.row + 1, one.value);
  }
  return tr("Read as text, though most values are numbers: ^1.", visibleText(columns)) + " " +
         remedyText(job, writtenSettings(found.format));
}

// The job's format with one more word for missing values.
std::string missingRemedy(const Job& job, double value) {
  FileFormat format = job.data.format;
  format.missing.push_back(fullPrecision(value));
  return remedyText(job, {written("na", format.missing)});
}

std::string suspicionNote(const Job& job, const CallInput& input, const SuspiciousValues& found) {
  const std::string rows = rowList(found.rows);
  const std::string value = fullPrecision(found.value);
  switch (found.suspicion) {
    case Suspicion::fillCode:
      return tr("^1 holds ^2 in row ^3, which looks like a mark for missing values; it was taken as a value.",
                found.column, value, rows) +
             " " + missingRemedy(job, found.value);
    case Suspicion::infinite:
      return tr("^1 is infinite in row ^2.", found.column, rows) + " " + missingRemedy(job, found.value);
    case Suspicion::outlier:
      return tr("^1 is at least 1,000 times its neighbours in row ^2 (^3). See whether it is a slip of the pen.",
                found.column, rows, value);
    case Suspicion::total:
      break;
  }
  const std::string before = caseLabel(input.dataset, input.trends, static_cast<std::int64_t>(found.rows.front()) - 1);
  return tr("The last value of ^1, in row ^2, is the sum of all others: a row of totals is no observation.",
            found.column, rows) +
         " " + remedyText(job, {written("to", before)});
}

std::vector<std::string> headerNotes(const Job& job, const Dataset& dataset) {
  std::vector<std::string> notes;
  if (!job.data.query.empty() || job.data.source == kStandardStream) return notes;
  for (const RepeatedName& one : repeatedNames(dataset, job.data.source)) {
    notes.push_back(tr("The header names \"^1\" twice: column ^2 is called \"^3\" here.", visibleText(one.name),
                       one.column, visibleText(one.called)));
  }
  return notes;
}

}  // namespace

std::string remedyText(const Job& job, const std::vector<WrittenSetting>& settings) {
  std::string options;
  std::string lines;
  for (const WrittenSetting& setting : settings) {
    options += (options.empty() ? "" : " ") + setting.option;
    lines += "\n" + setting.key;
  }
  return job.file.empty() ? tr("Give these options: ^1", options)
                          : tr("To mend it, give [data] in the job file these lines:") + lines;
}

std::vector<std::string> dataNotes(const Job& job, const CallInput& input, const std::vector<int>& columns) {
  const Dataset& dataset = input.dataset;
  std::vector<std::string> notes = headerNotes(job, dataset);
  if (const auto found = findTextNumbers(dataset, job.data.format)) notes.push_back(textNumbersNote(job, *found));
  for (const SuspiciousValues& one : suspiciousValues(dataset, columns))
    notes.push_back(suspicionNote(job, input, one));
  return notes;
}

}  // namespace workbench
