// Reading series from the active dataset: listwise deletion, or every case with its gaps.

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "procedures/common/data_access_chain.h"
#include "procedures/common/operation_names.h"
#include "procedures/common/series_matrix.h"

namespace procedures {

struct FetchOutcome {
  bool succeeded = false;                     // at least one case was delivered and nothing was thrown
  std::int64_t deliveredCases = 0;            // kept or not
  std::vector<std::int64_t> keptCaseOffsets;  // of the rows appended, ascending
};

// A case with a missing value is dropped whole (listwise deletion), or kept with the value as the host delivered it.
enum class CaseDeletion { listwise, none };

// Completes the chain of one pass and returns its access object, or null.
using ChainBuilder = std::function<AlgoDataAccess*(DataAccessChain&)>;

// One pass over the cases: appends to column j of `matrix` the j-th value of every case that counts. Missing are the
// system-missing value and NaN; infinities are values. What carries no values is passed over: it is no case and takes
// up no offset; more than a million in a row, or a record of more values than there are columns, end the pass as a
// failure. Traces as `names.fetch` of `variableCount` variables. No exception leaves it; rows appended before a
// failure stay.
FetchOutcome fetchSeries(const OperationNames& names, std::size_t variableCount, const ChainBuilder& buildChain,
                         SeriesMatrix& matrix, CaseDeletion deletion = CaseDeletion::listwise);

// A procedure's own fetch of the listed columns.
using SeriesFetch = std::function<FetchOutcome(std::span<const std::int32_t> indexes, SeriesMatrix& matrix)>;

}  // namespace procedures
