// The output document of a run.

#pragma once

#include "host/data_source.h"
#include "host/procedure.h"
#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

// Builds every table and chart that was asked for, the forecast first, and hands the document to the host. Host
// exceptions pass through.
void writeDocument(BpProcedure& procedure, ProcedureDataSource& dataSource, const ReportContext& context);

}  // namespace vardynamics
