// Reading series from the active dataset, with listwise deletion.

#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "host/data_source.h"
#include "procedures/varmodel/data/series_matrix.h"

namespace varmodel {

struct FetchOutcome {
  bool succeeded = false;                     // at least one case was delivered and nothing was thrown
  std::int64_t deliveredCases = 0;            // kept or not
  std::vector<std::int64_t> keptCaseOffsets;  // of the rows appended, ascending
};

// One pass over the cases: appends to column j of `matrix` the value of the j-th listed variable for every case in
// which none of them is missing (system-missing or NaN; infinities are values). Indexes that are not columns of the
// dataset are skipped. `userMissing` "INCLUDE" reads user-missing values as values, any other text excludes them. No
// exception leaves it; rows appended before a failure stay.
FetchOutcome fetchSeries(ProcedureDataSource& dataSource, std::span<const std::int32_t> indexes,
                         const std::string& userMissing, SeriesMatrix& matrix);

}  // namespace varmodel
