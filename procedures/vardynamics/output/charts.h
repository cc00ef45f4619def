// The charts of the document, each as data.

#pragma once

#include <cstddef>

#include "procedures/vardynamics/output/document_chart.h"
#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

// The last part of a series and its forecast, limits as nested bands: those of the given levels, or 50, 80 and the one
// level.
DocumentChart forecastChart(const ReportContext& context, std::size_t series);
// The same of a transformed series in the unit of the data.
DocumentChart levelChart(const ReportContext& context, std::size_t series);

// Every response to every shock of a type, a small chart each.
DocumentChart responseChart(const ReportContext& context, const ShockResponses& set);

// The roots in the unit circle.
DocumentChart rootsChart(const ReportContext& context);

// The shares of every shock in the forecasts of a series over the horizons, stacked; generalized ones as divided by
// their row sums.
DocumentChart varianceChart(const ReportContext& context, std::size_t series);
DocumentChart generalizedChart(const ReportContext& context, std::size_t series);

// What every shock does to a series, under the line of the data less what no shock does.
DocumentChart historicalChart(const ReportContext& context, std::size_t series);

// Root mean squared errors over the horizons, the model beside its rivals.
DocumentChart backtestChart(const ReportContext& context, std::size_t series);

}  // namespace vardynamics
