// Labels of the observed and of the forecast periods.
//
// Trace lines carry the names `historicalLabels` and `forecastLabels` of the caller's operations.
// Case offsets count from 0 at the first case of the dataset; the case number that users see is the offset plus 1.

#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "host/data_source.h"
#include "procedures/common/operation_names.h"
#include "procedures/common/time_axis.h"

namespace procedures {

// Replaces the historical labels by one for each observed row: the text of the string variable DATE_ without trailing
// blanks where the dataset has one, else the host's date label. Leaves none when there are no date variables. Lets no
// exception out; the labels made before one stay.
void generateHistoricalLabels(const OperationNames& names, ProcedureDataSource& dataSource, TimeAxis& axis);

// The case offset that PREDICT THRU means: none without a target, and none, after a trace line, when its date names no
// period. Host exceptions pass through.
std::optional<std::int64_t> predictTargetOffset(const OperationNames& names, ProcedureDataSource& dataSource,
                                                const TimeAxis& axis);

// Replaces the forecast labels by one for each period after `lastObservedOffset` up to the PREDICT THRU target, and the
// held warning by the reason why there is none. Without a target there is no label and no warning. Lets no exception
// out; the labels made before one stay.
void generateForecastLabels(const OperationNames& names, ProcedureDataSource& dataSource,
                            std::int64_t lastObservedOffset, TimeAxis& axis);

// Makes the axis follow the rows that the analysis kept: the historical labels become those of the kept cases (none
// when one of them has no label; case numbers when PREDICT THRU is a case number), and the forecasts start after the
// last kept case.
void followKeptCases(const OperationNames& names, ProcedureDataSource& dataSource,
                     std::vector<std::int64_t> keptCaseOffsets, TimeAxis& axis);

}  // namespace procedures
