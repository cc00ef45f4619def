// Dates as people write them: 2001Q3, Mar-2001, 3/31/2001, 1959.25.

#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/dates/period.h"

namespace workbench {

// The ways of writing a period; those of one unit that differ only in separators are one.
enum class DateForm {
  quarter,       // 2001Q3, 2001-Q3, Q3 2001, 3. Quartal 2001
  month,         // 2001M03, 2001-03, 03/2001, Mar-2001, March 2001
  week,          // 2020-W01
  year,          // 2001
  colonQuarter,  // 2001:3
  colonMonth,    // 2001:3, 2001:11
  yearMonth,     // 200103
  yearMonthDay,  // 2001-03-31, 20010331
  dayMonthYear,  // 31/3/2001, 31.03.2001, 31 Mar 2001
  monthDayYear   // 3/31/2001, March 31, 2001
};

// Nothing when the text is not of this form, or names no period (2001Q5).
std::optional<Period> readPeriod(std::string_view text, DateForm form);

// The period that the text names in any form; in that of the unit where several are possible.
std::optional<Period> readPeriod(std::string_view text, Unit unit);

// The forms in which all texts name periods, those that read nothing but one form apart from others first; none when
// there is no such form. Empty texts are left out.
std::vector<DateForm> formsOf(std::span<const std::string> texts);

// The first text that is not of the form that most of them have; nothing when no form reads at least half of them.
struct OddText {
  std::size_t row = 0;
  std::size_t like = 0;  // a row whose text is of that form
};
std::optional<OddText> oddText(std::span<const std::string> texts);

// Numbers as dates: years (2001), months (200103), days (20010331), quarters or months as fractions of years (1959.25,
// 1959.0833) and quarters behind the point (1959.1 to 1959.4). The periods, all of one unit; none when the numbers are
// no dates.
std::vector<Period> periodsOfNumbers(std::span<const double> numbers);

}  // namespace workbench
