// The charts of the document, each as data.

#pragma once

#include <cstddef>

#include "procedures/vardynamics/output/document_chart.h"
#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

// The last part of a series and its forecast, limits as nested bands: those of the given levels, or 50, 80 and the one
// level.
DocumentChart forecastChart(const ReportContext& context, std::size_t series);

// The roots in the unit circle.
DocumentChart rootsChart(const ReportContext& context);

}  // namespace vardynamics
