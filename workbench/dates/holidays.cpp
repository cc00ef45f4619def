#include "workbench/dates/holidays.h"

#include <algorithm>
#include <optional>

#include "workbench/base/errors.h"
#include "workbench/dates/date_text.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

Holidays businessDaysOf(const std::vector<Period>& days) {
  Holidays ordinals;
  for (const Period& day : days) ordinals.push_back(businessDayOrdinal(day.ordinal()));
  std::ranges::sort(ordinals);
  return ordinals;
}

void addGaps(const Holidays& worked, Holidays& holidays) {
  for (std::size_t i = 1; i < worked.size(); ++i) {
    if (worked[i] - worked[i - 1] - 1 > kLongestHoliday) continue;
    for (std::int64_t day = worked[i - 1] + 1; day < worked[i]; ++day) holidays.push_back(day);
  }
}

void addDay(const std::string& word, const Holidays& worked, Holidays& holidays) {
  const std::optional<Period> day = readPeriod(word, Unit::day);
  if (!day) {
    throw UsageError(
        "dates.no-holiday",
        "holidays: \"^1\" is no day. Write days as 2024-12-25, or the word gaps, which makes every missing "
        "day from Monday to Friday a holiday.",
        word);
  }
  const std::int64_t businessDay = businessDayOrdinal(day->ordinal());
  if (dayOfBusinessDay(businessDay) != day->ordinal()) return;
  if (std::ranges::binary_search(worked, businessDay)) {
    throw DataError(
        "dates.holiday-with-row",
        "holidays: ^1 is declared a holiday, but there is a row for it. Leave it out of the holidays, or the "
        "row out of the data.",
        periodLabel(*day));
  }
  holidays.push_back(businessDay);
}

}  // namespace

std::shared_ptr<const Holidays> holidaysFrom(const std::vector<std::string>& words, const std::vector<Period>& days) {
  const Holidays worked = businessDaysOf(days);
  Holidays holidays;
  for (const std::string& word : words) {
    word == kGapsAreHolidays ? addGaps(worked, holidays) : addDay(word, worked, holidays);
  }
  std::ranges::sort(holidays);
  holidays.erase(std::unique(holidays.begin(), holidays.end()), holidays.end());
  return std::make_shared<const Holidays>(std::move(holidays));
}

}  // namespace workbench
