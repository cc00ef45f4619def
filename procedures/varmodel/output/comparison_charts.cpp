// Charts of several series each: all residuals, observed against fitted values, forecasts.

#include <algorithm>

#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/output/var_output_gen.h"

namespace varmodel {

namespace {

constexpr const char* kObserved = "Observed";
constexpr const char* kFitted = "Fitted";
constexpr const char* kForecast = "Forecast";

void addManySeries(VARChart& chart, const procedures::SeriesPoints& points) {
  chart.addStringDataVariable("xdata", points.labels);
  chart.addDoubleDataVariable("ydata", points.values);
  chart.addStringDataVariable("seriesname", points.seriesNames);
  chart.addVizlGraphToProcedureJSON();
}

}  // namespace

// Row r of the estimation sample is observation MAXLAG + r, whatever lag was selected.
VAROutputGen::Texts VAROutputGen::sampleLabels(std::size_t count) const {
  return procedures::observationLabels(settings_->timeAxis.historicalLabels,
                                       static_cast<std::size_t>(settings_->maxLag), count);
}

std::span<const double> VAROutputGen::observedSample(std::size_t variable) const {
  if (variable >= settings_->endogenousSeries.size()) return {};
  const std::span<const double> series = settings_->endogenousSeries[variable];
  return series.subspan(std::min(series.size(), static_cast<std::size_t>(settings_->maxLag)));
}

procedures::SeriesPoints VAROutputGen::observedAndFitted(std::size_t variable) const {
  const std::span<const double> observed = observedSample(variable);
  const std::vector<double>& fitted = onlySeries((*results_)[variable].fittedValues);
  procedures::SeriesPoints points;
  points.append(kObserved, sampleLabels(observed.size()), observed);
  points.append(kFitted, sampleLabels(fitted.size()), fitted);
  return points;
}

int VAROutputGen::generateResidualsCombinedChart() {
  constexpr const char* kRoutine = "generateResidualsCombinedChart";
  if (requireChartInput(kRoutine, !results_->empty(), "No results available", true)) return 1;
  procedures::SeriesPoints points;
  std::size_t plotted = 0;
  for (std::size_t i = 0; i < variableCount(); ++i) {
    const std::string& name = settings_->endogenousNames[i];
    const std::vector<double>& residuals = onlySeries((*results_)[i].residuals);
    if (residuals.empty()) {
      traceLine("Warning: No residuals for variable '" + name + "' in combined chart");
      continue;
    }
    points.append(name, sampleLabels(residuals.size()), residuals);
    ++plotted;
  }
  if (points.size() == 0) {
    traceError(kRoutine, "No data to plot");
    return 1;
  }
  const std::string residualsText = localize("Residuals");
  const auto chart = createChart({.routine = kRoutine,
                                  .variable = residualsText,
                                  .title = residualsText,
                                  .kind = procedures::kSeriesLines,
                                  .yAxisLabel = residualsText,
                                  .xAxisLabel = localize("Date")});
  if (!chart) return 1;
  addManySeries(*chart, points);
  traceLine("Combined residuals chart generated with " + std::to_string(points.size()) + " data points across " +
            std::to_string(plotted) + " variables");
  return 0;
}

int VAROutputGen::generateFitValuesChart() {
  constexpr const char* kRoutine = "generateFitValuesChart";
  const bool present = !results_->empty() && !settings_->endogenousSeries.empty();
  if (requireChartInput(kRoutine, present, "No results or data available", false)) return 1;
  for (std::size_t i = 0; i < variableCount(); ++i) {
    const std::string& name = settings_->endogenousNames[i];
    if (onlySeries((*results_)[i].fittedValues).empty()) {
      traceLine("Warning: No predicted values for variable '" + name);
      continue;
    }
    const auto chart = createChart({.routine = kRoutine,
                                    .variable = name,
                                    .title = localize("Fit Values -") + name,
                                    .kind = procedures::kSeriesLines,
                                    .yAxisLabel = name,
                                    .xAxisLabel = localize("Date")});
    if (!chart) continue;
    addManySeries(*chart, observedAndFitted(i));
    traceLine("Fit Values chart generated for variable '" + name + "' with " +
              std::to_string(observedSample(i).size()) + " observations");
  }
  return 0;
}

int VAROutputGen::generateForecastChart() {
  constexpr const char* kRoutine = "generateForecastChart";
  const bool present = !results_->empty() && !settings_->endogenousSeries.empty();
  if (requireChartInput(kRoutine, present, "No results or data available", false)) return 1;
  for (std::size_t i = 0; i < variableCount(); ++i) {
    const std::string& name = settings_->endogenousNames[i];
    const std::vector<double>& forecasts = (*results_)[i].forecasts;
    if (forecasts.empty()) {
      traceLine("Warning: No forecast values for variable '" + name + "', skipping forecast chart");
      continue;
    }
    const auto chart = createChart({.routine = kRoutine,
                                    .variable = name,
                                    .title = localize("Forecast -") + name,
                                    .kind = procedures::kSeriesLines,
                                    .yAxisLabel = name,
                                    .xAxisLabel = localize("Date")});
    if (!chart) continue;
    chart->setSeriesColor(kObserved, "color.red");
    chart->setSeriesColor(kFitted, "color.blue");
    chart->setSeriesColor(kForecast, "color.blue");
    procedures::SeriesPoints points = observedAndFitted(i);
    const std::size_t fitted = points.size() - observedSample(i).size();
    points.append(kForecast, procedures::forecastStepLabels(settings_->timeAxis.forecastLabels, forecasts.size()),
                  forecasts);
    addManySeries(*chart, points);
    traceLine("Forecast chart generated for variable '" + name + "' with " + std::to_string(observedSample(i).size()) +
              " observed, " + std::to_string(fitted) + " fitted, " + std::to_string(forecasts.size()) +
              " forecast points");
  }
  return 0;
}

}  // namespace varmodel
