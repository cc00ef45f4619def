// The time axis of a run: which periods were observed, which are to be forecast, and what they are called.

#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "procedures/common/series_matrix.h"

namespace procedures {

// What the user is told when forecasts were asked for and none can be made.
inline constexpr const char* kNoForecastsWarning =
    "The forecast table is not created because no forecasts could be calculated.";

struct ForecastLabel {
  std::string text;
  std::int64_t caseOffset = 0;  // cases after the first case of the dataset
};

// Components of a PREDICT THRU date, one slot for each of the unit codes 2 (year) to 10 (observation).
using PredictThruDate = std::array<std::uint32_t, 9>;

struct TimeAxis {
  // The forecast request. Default, meaning and range of each:
  bool predictRequested = false;     // PREDICT keyword, or the session's PREDICT THRU setting
  bool predictThruEnd = false;       // PREDICT THRU END: existing periods only, no forecasts
  std::int32_t predictThruCase = 0;  // case number (from 1) given by PREDICT THRU; 0: none
  PredictThruDate predictThruDate{};

  // The dataset's date variables, in the host's order; the four lists are parallel.
  bool hasDateVariables = false;
  std::vector<int> dateVariableIndexes;
  std::vector<std::string> dateVariableNames;
  std::vector<std::string> timeUnitNames;  // "YEAR" .. "OBS", "UNKNOWN"
  SeriesMatrix dateValues;

  // Rows: how many cases the dataset delivered, and the offsets of those that the endogenous fetch kept.
  std::int64_t observedRows = 0;
  std::vector<std::int64_t> keptCaseOffsets;

  std::vector<std::string> historicalLabels;  // one a kept case, or empty
  std::vector<ForecastLabel> forecastLabels;  // their number is the forecast horizon

  // A "forecast table is not created" warning found while labelling; issued once the final horizon is known to be 0.
  std::string heldWarning;
};

}  // namespace procedures
