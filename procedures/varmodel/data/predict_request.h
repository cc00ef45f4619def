// The session's PREDICT THRU setting and the dataset's date variables.

#pragma once

#include <string>

#include "host/data_source.h"
#include "procedures/varmodel/data/time_axis.h"

namespace varmodel {

// Unit codes that have a slot in a PREDICT THRU date.
inline constexpr int kFirstUnitCode = 2;
inline constexpr int kLastUnitCode = 10;

// "YEAR" .. "OBS" for the unit codes 2 .. 10, otherwise "UNKNOWN".
const char* timeUnitName(int unitCode);

// Fills the request, the date variables, the number of observed rows and the historical labels. A PREDICT request that
// the axis holds already (the command's keyword) stays. `userMissing` as in fetchSeries. False when a host operation
// threw a standard exception; what was written before stays.
bool readPredictRequest(ProcedureDataSource& dataSource, const std::string& userMissing, TimeAxis& axis);

}  // namespace varmodel
