// Reading the cases of the active dataset, complete or not.

#pragma once

#include <cstdint>
#include <span>

#include "host/data_source.h"
#include "procedures/common/fetch.h"
#include "procedures/common/operation_names.h"
#include "procedures/vardynamics/data/sample.h"

namespace vardynamics {

// The names under which reading appears in the trace.
inline constexpr procedures::OperationNames kOperations{"VARDynamics", "readCases", "readPredictRequest",
                                                        "labelObservedCases", "labelForecastPeriods"};

enum class UserMissing { excluded, included };

// procedures::fetchSeries over these columns.
procedures::FetchOutcome fetchCases(ProcedureDataSource& dataSource, std::span<const std::int32_t> indexes,
                                    UserMissing userMissing, procedures::CaseDeletion deletion,
                                    procedures::SeriesMatrix& matrix);

// Every case of the two lists, in one pass. Throws UserError when the dataset cannot be read.
CaseRows readRows(ProcedureDataSource& dataSource, std::span<const std::int32_t> endogenous,
                  std::span<const std::int32_t> exogenous, UserMissing userMissing);

}  // namespace vardynamics
