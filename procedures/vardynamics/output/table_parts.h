// What several tables are put together from.

#pragma once

#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "engine/diagnostics/test_statistics.h"
#include "procedures/vardynamics/output/document_table.h"
#include "procedures/vardynamics/output/texts.h"

namespace vardynamics {

inline constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();

// Values of a column, row after row, from records: columnOf(rows, [](const Row& row) { return row.t; }).
template <typename Rows, typename ValueOf>
std::vector<double> columnOf(const Rows& rows, ValueOf valueOf) {
  std::vector<double> values;
  for (const auto& row : rows) values.push_back(valueOf(row));
  return values;
}

// 1, 4, 8, 12, 20 as far as they lie below the horizon, and the horizon.
std::vector<std::size_t> printedHorizons(std::size_t horizon);

// The column "Sig.". A p-value too small for a double stands as the smallest one: no probability is zero.
TableColumn probabilityColumn(const Texts& texts, std::vector<double> values);

// Statistic, df and Sig. of tests, one a row; missing where a test is absent.
std::vector<TableColumn> chiSquaredColumns(const Texts& texts,
                                           const std::vector<std::optional<engine::ChiSquaredTest>>& tests);

// Lower and upper limits at a confidence level in percent.
std::vector<TableColumn> limitColumns(const Texts& texts, double level, std::vector<double> lower,
                                      std::vector<double> upper, int decimals);

// F, both degrees of freedom and Sig.
std::vector<TableColumn> fColumns(const Texts& texts, const std::vector<std::optional<engine::FTest>>& tests);

// The columns under a common heading.
std::vector<TableColumn> grouped(std::vector<TableColumn> columns, const std::string& group);

void append(std::vector<TableColumn>& columns, std::vector<TableColumn> more);
void append(std::vector<std::string>& notes, std::vector<std::string> more);

}  // namespace vardynamics
