#include "procedures/vardynamics/data/active_rows.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {

procedures::FetchOutcome fetchCases(ProcedureDataSource& dataSource, std::span<const std::int32_t> indexes,
                                    UserMissing userMissing, procedures::CaseDeletion deletion,
                                    procedures::SeriesMatrix& matrix) {
  const procedures::ChainBuilder build = [&](procedures::DataAccessChain& chain) {
    return procedures::buildDataAccessChain(chain, indexes, dataSource,
                                            {.excludeUserMissing = userMissing == UserMissing::excluded});
  };
  return procedures::fetchSeries(kOperations, indexes.size(), build, matrix, deletion);
}

CaseRows readRows(ProcedureDataSource& dataSource, std::span<const std::int32_t> endogenous,
                  std::span<const std::int32_t> exogenous, UserMissing userMissing) {
  std::vector<std::int32_t> indexes(endogenous.begin(), endogenous.end());
  indexes.insert(indexes.end(), exogenous.begin(), exogenous.end());
  procedures::SeriesMatrix columns;
  const auto outcome = fetchCases(dataSource, indexes, userMissing, procedures::CaseDeletion::none, columns);
  if (!outcome.succeeded || columns.size() != indexes.size()) {
    fail("The variables could not be read from the active dataset. Check that it has cases.");
  }
  for (auto& column : columns) std::ranges::replace(column, procedures::kSystemMissing, std::nan(""));
  CaseRows rows;
  const auto middle = columns.begin() + std::ssize(endogenous);
  rows.endogenous.assign(std::make_move_iterator(columns.begin()), std::make_move_iterator(middle));
  rows.exogenous.assign(std::make_move_iterator(middle), std::make_move_iterator(columns.end()));
  return rows;
}

}  // namespace vardynamics
