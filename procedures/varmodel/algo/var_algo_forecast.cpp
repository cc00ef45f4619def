// Point forecasts from the model of the selected lag.

#include <algorithm>
#include <iostream>
#include <optional>
#include <utility>

#include "engine/dynamics/forecast_recursion.h"
#include "procedures/varmodel/algo/var_algo.h"

namespace varmodel {

bool VARAlgo::computeForecasts(std::int64_t horizon, SeriesList& output) {
  const SeriesList& endogenous = settings.endogenousSeries;
  if (equationResults.empty() || horizon < 1 || endogenous.empty()) return false;
  if (std::ranges::any_of(endogenous, [&](const auto& series) { return std::ssize(series) < forecastLag; }))
    return false;
  const auto entry = coefficientsByLag.find(forecastLag);
  if (entry == coefficientsByLag.end()) return false;
  std::optional<SeriesList> forecasts = engine::recursiveForecasts(
      entry->second, endogenous, static_cast<std::size_t>(forecastLag), static_cast<std::size_t>(horizon), std::cerr);
  if (!forecasts) return false;
  output = std::move(*forecasts);
  for (std::size_t i = 0; i < equationResults.size() && i < output.size(); ++i) {
    equationResults[i].forecasts = output[i];
  }
  if (!settings.exogenousSeries.empty()) {
    std::cerr
        << "Warning: VARAlgo::computeForecasts - The exogenous terms are not part of the forecasts: they are left "
           "out, as if every exogenous variable were 0 in the forecast periods.\n";
  }
  return true;
}

}  // namespace varmodel
