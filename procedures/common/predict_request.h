// The session's PREDICT THRU setting and the dataset's date variables.

#pragma once

#include "host/codes.h"
#include "host/data_source.h"
#include "procedures/common/fetch.h"
#include "procedures/common/time_axis.h"

namespace procedures {

// Unit codes that have a slot in a PREDICT THRU date.
inline constexpr int kFirstUnitCode = codes::kYear;
inline constexpr int kLastUnitCode = codes::kObservation;

// "YEAR" .. "OBS" for the codes of time units, otherwise "UNKNOWN".
const char* timeUnitName(int unitCode);

// Fills the request, the date variables, the number of observed rows and the historical labels. A PREDICT request that
// the axis holds already (the command's keyword) stays. `fetch` reads the date variables. False when a host operation
// threw a standard exception; what was written before stays.
bool readPredictRequest(const OperationNames& names, ProcedureDataSource& dataSource, const SeriesFetch& fetch,
                        TimeAxis& axis);

}  // namespace procedures
