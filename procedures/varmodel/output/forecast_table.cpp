#include <algorithm>
#include <sstream>

#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/output/var_output_gen.h"

namespace varmodel {

namespace {

// The number of forecast values of the first record that has any; 0 when none has.
std::size_t forecastHorizon(const std::vector<EquationResult>& results) {
  const auto forecast = std::find_if(results.begin(), results.end(),
                                     [](const EquationResult& result) { return !result.forecasts.empty(); });
  return forecast == results.end() ? 0 : forecast->forecasts.size();
}

void traceForecasts(const EquationResult& result) {
  std::ostringstream line;
  line << "Forecast for " << result.equationName << ": ";
  const char* separator = "";
  for (const double value : result.forecasts) {
    line << separator << value;
    separator = ", ";
  }
  traceLine(line.str());
}

}  // namespace

int VAROutputGen::generateForecastTable() {
  if (results_->empty()) {
    traceError("generateForecastTable", "No results available");
    return 1;
  }
  const std::size_t horizon = forecastHorizon(*results_);
  if (horizon == 0) {
    traceLine("VAROutputGen::generateForecastTable - No forecast values available, skipping table");
    return 0;
  }
  const std::string title = localize("Forecast");
  const auto table = createTable(
      title, {.title = title, .rowLabel = localize("Variable"), .columnLabel = title, .showsColumnLabel = true});
  if (!table) {
    traceError("generateForecastTable", "Table creation failed");
    return 1;
  }
  table->addColumnCategories(forecastColumnLabels(horizon));
  table->addRowCategories(equationNames());
  for (std::size_t i = 0; i < results_->size(); ++i) {
    const EquationResult& result = (*results_)[i];
    if (result.forecasts.empty()) {
      traceLine("Warning: No forecast values for " + result.equationName);
      table->fillRow(static_cast<int>(i), std::vector<double>(horizon, 0.0));
    } else {
      traceForecasts(result);
      table->fillRow(static_cast<int>(i), result.forecasts);
    }
  }
  table->build();
  return 0;
}

VAROutputGen::Texts VAROutputGen::forecastColumnLabels(std::size_t horizon) const {
  const std::vector<procedures::ForecastLabel>& dates = settings_->timeAxis.forecastLabels;
  if (dates.size() >= horizon) return procedures::forecastStepLabels(dates, horizon);
  traceLine("Warning: Using generic period labels. forecastDates size: " + std::to_string(dates.size()) +
            ", forecastHorizon: " + std::to_string(horizon));
  Texts labels;
  for (const std::string& number : procedures::numberLabels(horizon)) labels.push_back(localize("Period ") + number);
  return labels;
}

}  // namespace varmodel
