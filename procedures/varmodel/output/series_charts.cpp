// Charts of one series each: the observed series, autocorrelations, residuals.

#include <algorithm>

#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/output/var_output_gen.h"

namespace varmodel {

namespace {

void addOneSeries(VARChart& chart, const std::vector<std::string>& labels, const std::vector<double>& values) {
  chart.addStringDataVariable("xdata", labels);
  chart.setDataVector(values, false);
  chart.addVizlGraphToProcedureJSON();
}

void traceTimeAxis(const std::vector<std::string>& labels, bool dated) {
  traceLine(dated ? "Time series chart using date labels: " + labels.front() + " to " + labels.back()
                  : "Time series chart using numeric labels (no date info)");
}

}  // namespace

int VAROutputGen::requireChartInput(const char* routine, bool present, const char* missing, bool needsNames) const {
  if (!present) {
    traceError(routine, missing);
    return 1;
  }
  if (needsNames && settings_->endogenousNames.empty()) {
    traceError(routine, "No endogenous variables");
    return 1;
  }
  return 0;
}

std::size_t VAROutputGen::variableCount() const {
  return std::min(settings_->endogenousNames.size(), results_->size());
}

int VAROutputGen::generateTimeSeriesChart() {
  constexpr const char* kRoutine = "generateTimeSeriesChart";
  const SeriesMatrix& series = settings_->endogenousSeries;
  if (requireChartInput(kRoutine, !results_->empty() && !series.empty(), "No results or data available", true)) {
    return 1;
  }
  const std::vector<std::string>& dates = settings_->timeAxis.historicalLabels;
  for (std::size_t i = 0; i < std::min(settings_->endogenousNames.size(), series.size()); ++i) {
    const std::string& name = settings_->endogenousNames[i];
    const auto chart = createChart({.routine = kRoutine,
                                    .variable = name,
                                    .title = localize("Time Series -") + name,
                                    .kind = procedures::kLineChart,
                                    .yAxisLabel = localize("Values"),
                                    .xAxisLabel = localize("Date")});
    if (!chart) continue;
    chart->setLineColor(procedures::kRedLine);
    const Texts labels = procedures::observationLabels(dates, 0, series[i].size());
    traceTimeAxis(labels, !labels.empty() && dates.size() >= labels.size());
    addOneSeries(*chart, labels, series[i]);
    traceLine("Time series chart generated for variable '" + name + "' with " + std::to_string(labels.size()) +
              " observations");
  }
  return 0;
}

int VAROutputGen::generateACFChart() {
  if (requireChartInput("generateACFChart", !results_->empty(), "No results available", true)) return 1;
  if (settings_->plotAcf) generateAutocorrelationCharts({"ACF -", "endogenous", &EquationResult::seriesACF});
  if (settings_->plotResAcf) {
    generateAutocorrelationCharts({"ACF Residuals -", "residuals", &EquationResult::residualACF});
  }
  return 0;
}

void VAROutputGen::generateAutocorrelationCharts(const AutocorrelationCharts& charts) {
  for (std::size_t i = 0; i < variableCount(); ++i) {
    const std::string& name = settings_->endogenousNames[i];
    std::vector<double> values = (*results_)[i].*charts.values;
    values.resize(std::min(values.size(), static_cast<std::size_t>(std::max(settings_->maxLag, 0))));
    if (values.empty()) {
      traceLine(std::string("Warning: No ") + charts.traceName + " ACF values for variable '" + name);
      continue;
    }
    const auto chart = createChart({.routine = "generateACFChart",
                                    .variable = name,
                                    .title = localize(charts.titleKey) + name,
                                    .kind = procedures::kCorrelationBars,
                                    .yAxisLabel = localize("ACF"),
                                    .xAxisLabel = localize("Lag Number")});
    if (!chart) continue;
    addOneSeries(*chart, procedures::numberLabels(values.size()), values);
    traceLine(std::string("ACF (") + charts.traceName + ") chart generated for variable '" + name + "' with " +
              std::to_string(values.size()) + " lags");
  }
}

int VAROutputGen::generateResidualsChart() {
  constexpr const char* kRoutine = "generateResidualsChart";
  if (requireChartInput(kRoutine, !results_->empty(), "No results available", true)) return 1;
  for (std::size_t i = 0; i < variableCount(); ++i) {
    const std::string& name = settings_->endogenousNames[i];
    const std::vector<double>& residuals = onlySeries((*results_)[i].residuals);
    if (residuals.empty()) {
      traceLine("Warning: No residuals available for variable '" + name);
      continue;
    }
    const auto chart = createChart({.routine = kRoutine,
                                    .variable = name,
                                    .title = localize("Residuals -") + name,
                                    .kind = procedures::kLineChart,
                                    .yAxisLabel = localize("Residuals"),
                                    .xAxisLabel = localize("Date")});
    if (!chart) continue;
    chart->setLineColor(procedures::kGreenLine);
    addOneSeries(*chart, sampleLabels(residuals.size()), residuals);
    traceLine("Residuals chart generated for variable '" + name + "' with " + std::to_string(residuals.size()) +
              " residuals");
  }
  return 0;
}

}  // namespace varmodel
