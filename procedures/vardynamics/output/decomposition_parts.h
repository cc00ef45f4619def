// What tables, sentences and charts of a decomposition share.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

inline constexpr double kPercent = 100.0;

// Of a series between the first and the last row of its history: the change of the data is the sum of all parts.
struct HistoricalChange {
  double first = 0.0;  // the data there
  double last = 0.0;
  double deterministic = 0.0;
  std::vector<double> exogenous = {};
  double initial = 0.0;
  std::vector<double> shocks = {};
};
HistoricalChange historicalChange(const ReportContext& context, std::size_t series);

// The data of a series in the rows of the history.
std::vector<double> historicalData(const ReportContext& context, std::size_t series);

// Of a row of the history.
const std::string& historicalLabel(const ReportContext& context, std::size_t row);

int historicalDecimals(const ReportContext& context, std::size_t series);

}  // namespace vardynamics
