// The tables of the document, each as data.

#pragma once

#include <vector>

#include "procedures/vardynamics/output/document_table.h"
#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

using Tables = std::vector<DocumentTable>;

// The counts of the run; its notes are the headline.
DocumentTable summaryTable(const ReportContext& context);
// One a series with limits, one for all without.
Tables forecastTables(const ReportContext& context);
// Of a transformed series, in the unit of the data.
DocumentTable levelTable(const ReportContext& context, std::size_t series);
// The selection where the lag was chosen, the parameters of each equation, the fit, the residual covariance.
Tables modelTables(const ReportContext& context);
Tables stabilityTables(const ReportContext& context);
Tables testTables(const ReportContext& context);
Tables causalityTables(const ReportContext& context);
// One a series; of generalized shocks those as they are, then those divided by their row sums.
Tables varianceTables(const ReportContext& context);
Tables generalizedTables(const ReportContext& context);
// The change of the data from the first to the last row.
DocumentTable historicalTable(const ReportContext& context);
// Of one series: how good the forecasts were, and beside their rivals.
Tables backtestTables(const ReportContext& context, std::size_t series);
// One a shock of a type.
Tables responseTables(const ReportContext& context, const ShockResponses& set);

}  // namespace vardynamics
