// What a job asks for about dates, as plain records.

#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "workbench/dates/period.h"

namespace workbench {

// The components of one date by unit, coarsest first: {year: 1959, quarter: 1}.
using DateComponents = std::map<Unit, std::int64_t>;

// How the cases are dated; exactly one of the three is given.
struct DatesRequest {
  DateComponents start;                    // the first case's date; every further case is one period later
  std::string column;                      // dates, timestamps, texts or numbers; the frequency is inferred and checked
  std::map<Unit, std::string> variables;   // numeric columns that hold the components already
  bool sort = false;                       // rows are put into the order of their dates
  bool fillGaps = false;                   // periods without a row become rows without values
  bool exchangesDayAndMonth = false;       // of a column that can be read in both orders: the one not taken by itself
  std::vector<std::string> holidays = {};  // days, and "gaps": business days that are no cases
};

// How far to forecast; exactly one of the four is given.
struct PredictRequest {
  DateComponents date;
  std::optional<std::int64_t> caseNumber;  // from 1
  bool end = false;                        // through the last case: no forecasts
  std::string period = {};                 // as people write it: "2011Q3"
  // Beside a period of four digits: the number of periods that it is where the cases are no years.
  std::optional<std::int64_t> periodsUnlessYear = {};
};

}  // namespace workbench
