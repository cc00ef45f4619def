// The dates of a dated session's cases.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "workbench/dates/period.h"
#include "workbench/dates/trends_settings.h"

namespace workbench {

// The calendar of the date variables: the first case's date, and the distance of the second from it. Nothing without
// date variables or when the first case holds no date.
std::optional<CaseCalendar> caseCalendar(const Dataset& dataset, const TrendsSettings& settings);

// A case's name in messages: its DATE_ value, else its period's label; its number from 1 when the cases have no dates.
// The offset may lie after the last case.
std::string caseLabel(const Dataset& dataset, const TrendsSettings& settings, std::int64_t caseOffset);

}  // namespace workbench
