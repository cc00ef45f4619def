// The session's time-series settings from what a job asks for.

#pragma once

#include <cstdint>

#include "workbench/dates/requests.h"
#include "workbench/dates/trends_settings.h"

namespace workbench {

// Forecasts longer than this are refused: every period becomes a column of the forecast table.
inline constexpr std::int64_t kMaximumHorizon = 10000;

// Dates the cases: fills settings.dateVariables and appends to the dataset what is not there yet of the numeric date
// variables (YEAR_, QUARTER_, ... as the frequency needs) and of the string variable DATE_ with the labels. Throws
// UsageError for a request that cannot be meant, DataError for rows whose dates do not count on evenly; the dataset and
// the settings are then unchanged.
void defineDates(Dataset& dataset, const DatesRequest& request, TrendsSettings& settings);

// Sets the PREDICT range's upper end, as a date when the dataset has dates. Call it after defineDates. Throws
// UsageError for a date that is incomplete, impossible or without dates to compare with, and for more than
// kMaximumHorizon cases after the last one; the settings are then unchanged.
// `period` is read as any form of a period of the cases' unit.
void definePredict(const Dataset& dataset, const PredictRequest& request, TrendsSettings& settings);

// How many periods after the last case the settings' PREDICT range ends.
std::int64_t periodsAhead(const Dataset& dataset, const TrendsSettings& settings);

}  // namespace workbench
