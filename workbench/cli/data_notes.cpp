#include "workbench/cli/data_notes.h"

#include <algorithm>

#include "workbench/base/standard_streams.h"
#include "workbench/base/visible_text.h"
#include "workbench/dataset/header_names.h"
#include "workbench/dataset/suspicious_values.h"
#include "workbench/dataset/text_numbers.h"
#include "workbench/dates/case_label.h"
#include "workbench/render/number_format.h"

namespace workbench {

namespace {

Notice rowList(const std::vector<std::size_t>& rows) {
  constexpr std::size_t kShown = 5;
  std::string list;
  for (std::size_t i = 0; i < std::min(rows.size(), kShown); ++i) {
    list += (list.empty() ? "" : ", ") + std::to_string(rows[i] + 1);
  }
  return rows.size() > kShown ? phrase("^1 and ^2 more", list, rows.size() - kShown) : Notice(list);
}

Notice textNumbersNote(const Job& job, const TextNumbers& found) {
  Notice columns;
  for (const TextNumber& one : found.columns) {
    const Notice column =
        phrase("^1 (row ^2 holds \"^3\")", visibleText(one.column), one.row + 1, visibleText(one.value));
    columns = columns.empty() ? column : phrase("^1, ^2", columns, column);
  }
  return Notice("data.numbers-as-text", "Read as text, though most values are numbers: ^1.", columns) +
         remedyText(job, writtenSettings(found.format));
}

// The job's format with one more word for missing values.
Notice missingRemedy(const Job& job, double value) {
  FileFormat format = job.data.format;
  format.missing.push_back(numberText(value));
  return remedyText(job, {{"na", format.missing, WrittenSetting::Kind::texts}});
}

Notice suspicionNote(const Job& job, const CallInput& input, const SuspiciousValues& found) {
  const Notice rows = rowList(found.rows);
  const std::string value = fullPrecision(found.value);
  switch (found.suspicion) {
    case Suspicion::fillCode:
      return Notice("data.fill-code",
                    "^1 holds ^2 in row ^3, which looks like a mark for missing values; it was taken as a value.",
                    found.column, value, rows) +
             missingRemedy(job, found.value);
    case Suspicion::infinite:
      return Notice("data.infinite", "^1 is infinite in row ^2.", found.column, rows) + missingRemedy(job, found.value);
    case Suspicion::outlier:
      return Notice("data.outlier",
                    "^1 is at least 1,000 times its neighbours in row ^2 (^3). See whether it is a slip of the pen.",
                    found.column, rows, value);
    case Suspicion::total:
      break;
  }
  const std::string before = caseLabel(input.dataset, input.trends, static_cast<std::int64_t>(found.rows.front()) - 1);
  return Notice("data.total",
                "The last value of ^1, in row ^2, is the sum of all others: a row of totals is no observation.",
                found.column, rows) +
         remedyText(job, {{"to", {before}}});
}

std::vector<Notice> headerNotes(const Job& job, const Dataset& dataset) {
  std::vector<Notice> notes;
  if (!job.data.query.empty() || job.data.source == kStandardStream) return notes;
  for (const RepeatedName& one : repeatedNames(dataset, job.data.source)) {
    notes.emplace_back("data.name-twice", "The header names \"^1\" twice: column ^2 is called \"^3\" here.",
                       visibleText(one.name), one.column, visibleText(one.called));
  }
  return notes;
}

}  // namespace

Notice remedyText(const Job& job, const std::vector<WrittenSetting>& settings) {
  std::string options;
  std::string lines;
  for (const WrittenSetting& setting : settings) {
    options += (options.empty() ? "" : " ") + setting.option();
    lines += "\n" + setting.key();
  }
  return job.file.empty() ? phrase("Give these options: ^1", options)
                          : phrase("To mend it, give [data] in the job file these lines:^1", lines);
}

std::vector<Notice> dataNotes(const Job& job, const CallInput& input, const std::vector<int>& columns) {
  const Dataset& dataset = input.dataset;
  std::vector<Notice> notes = headerNotes(job, dataset);
  if (const auto found = findTextNumbers(dataset, job.data.format)) notes.push_back(textNumbersNote(job, *found));
  for (const SuspiciousValues& one : suspiciousValues(dataset, columns))
    notes.push_back(suspicionNote(job, input, one));
  return notes;
}

}  // namespace workbench
