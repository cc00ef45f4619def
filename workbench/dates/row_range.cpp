#include "workbench/dates/row_range.h"

#include <charconv>
#include <cstdint>
#include <numeric>
#include <optional>
#include <vector>

#include "workbench/base/errors.h"
#include "workbench/dataset/rows.h"
#include "workbench/dates/case_label.h"
#include "workbench/dates/date_text.h"

namespace workbench {

namespace {

std::optional<std::int64_t> caseNumber(const std::string& text) {
  std::int64_t number = 0;
  const char* end = text.data() + text.size();
  return std::from_chars(text.data(), end, number).ptr == end ? std::optional(number) : std::nullopt;
}

// The cases as a message names them: "1959Q1 to 2009Q3".
std::string extent(const Dataset& dataset, const TrendsSettings& settings) {
  return caseLabel(dataset, settings, 0) + " to " +
         caseLabel(dataset, settings, static_cast<std::int64_t>(dataset.rowCount) - 1);
}

std::int64_t offsetOf(const std::string& text, const char* bound, const Dataset& dataset,
                      const TrendsSettings& settings) {
  const std::optional<CaseCalendar> calendar = caseCalendar(dataset, settings);
  const std::string place = "'" + std::string(bound) + "': \"" + text + "\" ";
  std::optional<std::int64_t> offset;
  if (calendar) {
    const std::optional<Period> period = readPeriod(text, calendar->first.unit());
    if (period) offset = calendar->caseOffset(*period, std::string(bound) == "from");
  } else if (const auto number = caseNumber(text)) {
    offset = *number - 1;
  }
  if (!offset) {
    throw UsageError(place +
                     (calendar ? "is no " + std::string(unitName(calendar->first.unit()))
                               : "is no case number, and the cases have no dates") +
                     ". The cases are " + extent(dataset, settings) + ".");
  }
  if (*offset >= 0 && *offset < static_cast<std::int64_t>(dataset.rowCount)) return *offset;
  throw UsageError(place + "lies outside of the cases, which are " + extent(dataset, settings) + ".");
}

}  // namespace

std::size_t keepRange(Dataset& dataset, const TrendsSettings& settings, const RowRange& range) {
  const std::int64_t first = range.from.empty() ? 0 : offsetOf(range.from, "from", dataset, settings);
  const std::int64_t last =
      range.to.empty() ? static_cast<std::int64_t>(dataset.rowCount) - 1 : offsetOf(range.to, "to", dataset, settings);
  if (last < first) {
    throw UsageError("'from' (" + caseLabel(dataset, settings, first) + ") comes after 'to' (" +
                     caseLabel(dataset, settings, last) + "). Exchange them.");
  }
  std::vector<std::size_t> rows(static_cast<std::size_t>(last - first + 1));
  std::iota(rows.begin(), rows.end(), static_cast<std::size_t>(first));
  if (rows.size() < dataset.rowCount) takeRows(dataset, rows);
  return static_cast<std::size_t>(first);
}

}  // namespace workbench
