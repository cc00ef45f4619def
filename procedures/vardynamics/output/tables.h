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
// The selection where the lag was chosen, the parameters of each equation, the fit, the residual covariance.
Tables modelTables(const ReportContext& context);
Tables stabilityTables(const ReportContext& context);
Tables testTables(const ReportContext& context);
Tables causalityTables(const ReportContext& context);

}  // namespace vardynamics
