// Periods and instants as text. Labels of one unit sort as text in the order of time, observations apart.

#pragma once

#include <cstdint>
#include <string>

#include "workbench/base/notice.h"
#include "workbench/dates/period.h"

namespace workbench {

// "1959", "1959Q1", "1959M01", "1959W01", "1959-01-31", "1959-01-31 13:00" (hour and minute), "1959-01-31 13:05:09";
// an observation is its number.
std::string periodLabel(const Period& period);

// The instant of an error message: date, and the time of day when it is not midnight. Any 64-bit value of
// microseconds since 1970-01-01 will do; outside years 1 to 9999 the text says only that.
Notice instantText(std::int64_t microseconds);

// The unit as a word of a sentence, in the language of the rest.
Notice unitPhrase(Unit unit);

// "3 quarters", "1 day".
Notice countOf(std::int64_t count, Unit unit);

}  // namespace workbench
