#include "workbench/dates/row_range.h"

#include <cstdint>
#include <numeric>
#include <optional>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/base/whole_number.h"
#include "workbench/dataset/rows.h"
#include "workbench/dates/case_label.h"
#include "workbench/dates/date_text.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

constexpr std::int64_t kLargestCase = 4'294'967'295;

// The cases as a message names them: "1959Q1 to 2009Q3".
Notice extent(const Dataset& dataset, const TrendsSettings& settings) {
  return phrase("^1 to ^2", caseLabel(dataset, settings, 0),
                caseLabel(dataset, settings, static_cast<std::int64_t>(dataset.rowCount) - 1));
}

std::int64_t offsetOf(const std::string& text, const char* bound, const Dataset& dataset,
                      const TrendsSettings& settings) {
  const std::optional<CaseCalendar> calendar = caseCalendar(dataset, settings);
  std::optional<std::int64_t> offset;
  if (calendar) {
    const std::optional<Period> period = readPeriod(text, calendar->first.unit());
    if (period) offset = calendar->caseOffset(*period, std::string(bound) == "from");
  } else if (const auto number = wholeNumber(text, "'" + std::string(bound) + "'", kLargestCase)) {
    offset = *number - 1;
  }
  if (!offset) {
    const Notice what = calendar ? unitPhrase(calendar->first.unit()) : phrase("case number");
    const Notice dates = calendar ? Notice() : phrase("They have no dates: to name periods, date them with --dates.");
    throw UsageError(Notice("range.no-period", "'^1': \"^2\" is no ^3. The cases are ^4.", bound, text, what,
                            extent(dataset, settings)) +
                     dates);
  }
  if (*offset >= 0 && *offset < static_cast<std::int64_t>(dataset.rowCount)) return *offset;
  throw UsageError("range.outside", "'^1': \"^2\" lies outside of the cases, which are ^3. Name one of them.", bound,
                   text, extent(dataset, settings));
}

}  // namespace

std::size_t keepRange(Dataset& dataset, const TrendsSettings& settings, const RowRange& range) {
  const std::int64_t first = range.from.empty() ? 0 : offsetOf(range.from, "from", dataset, settings);
  const std::int64_t last =
      range.to.empty() ? static_cast<std::int64_t>(dataset.rowCount) - 1 : offsetOf(range.to, "to", dataset, settings);
  if (last < first) {
    throw UsageError("range.reversed", "'from' (^1) comes after 'to' (^2). Exchange them.",
                     caseLabel(dataset, settings, first), caseLabel(dataset, settings, last));
  }
  std::vector<std::size_t> rows(static_cast<std::size_t>(last - first + 1));
  std::iota(rows.begin(), rows.end(), static_cast<std::size_t>(first));
  if (rows.size() < dataset.rowCount) takeRows(dataset, rows);
  return static_cast<std::size_t>(first);
}

}  // namespace workbench
