#include "procedures/vardynamics/syntax/observations.h"

#include <optional>
#include <utility>
#include <variant>

#include "procedures/vardynamics/data/active_rows.h"
#include "procedures/vardynamics/data/calendar.h"
#include "procedures/vardynamics/data/horizon.h"
#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/syntax/data_faults.h"

namespace vardynamics {
namespace {

FutureUse futureUse(const Settings& settings) {
  return {.forecasts = settings.forecast.has_value(),
          .holdsEndogenous = settings.forecast && settings.forecast->conditional};
}

Sample readSample(const Settings& settings, ProcedureDataSource& dataSource, const Calendar& calendar) {
  const UserMissing userMissing = settings.includeUserMissing ? UserMissing::included : UserMissing::excluded;
  const CaseRows rows =
      readRows(dataSource, settings.model.endogenous.indexes, settings.model.exogenous.indexes, userMissing);
  auto cut = cutSample(rows, futureUse(settings));
  if (const auto* fault = std::get_if<SampleFault>(&cut)) refuse(*fault, settings.model, calendar);
  return std::get<Sample>(std::move(cut));
}

std::size_t horizonOf(const ForecastSettings& forecast, const Sample& sample, const Calendar& calendar) {
  HorizonRequest request{.predictOffset = calendar.predictOffset(), .cycle = calendar.cycle()};
  if (forecast.horizon) request.periods = static_cast<std::size_t>(*forecast.horizon);
  const std::size_t horizon = forecastHorizon(request, sample);
  if (horizon > kLongestHorizon) {
    const std::string most = std::to_string(kLongestHorizon);
    fail("The forecast would have ^1 periods; at most ^2 are forecast. Give HORIZON=^2.",
         {std::to_string(horizon), most});
  }
  return horizon;
}

void checkForecast(const Settings& settings, std::size_t horizon, const Sample& sample, const Calendar& calendar) {
  if (const auto missing = firstMissingFutureValue(sample, horizon)) {
    refuse(*missing, horizon, sample, settings.model, calendar);
  }
  if (settings.forecast->conditional && !holdsCondition(sample, horizon)) refuseNoCondition(sample, horizon, calendar);
}

}  // namespace

Observations readObservations(const Settings& settings, ProcedureDataSource& dataSource) {
  const Calendar calendar(dataSource);
  if (settings.model.seasonal && calendar.cycle() == 0) {
    fail("SEASONAL=YES needs dates with a cycle, such as quarters or months. Date the cases, or leave out SEASONAL.");
  }
  Observations found{.sample = readSample(settings, dataSource, calendar)};
  found.dated = calendar.hasDates();
  found.cycle = calendar.cycle();
  const std::size_t first = found.sample.cases.first;
  if (settings.forecast) {
    found.horizon = horizonOf(*settings.forecast, found.sample, calendar);
    checkForecast(settings, found.horizon, found.sample, calendar);
    for (const std::int32_t index : settings.model.endogenous.indexes) {
      found.originals.push_back(procedures::originalScale(index));
    }
  }
  const std::size_t periods = found.sample.rows() + found.horizon;
  if (settings.model.seasonal) found.seasons = calendar.seasons(first, periods);
  found.labels = calendar.labels(first, periods);
  if (settings.save) {
    found.dateVariables = calendar.dateVariableNames();
    found.dateComponents = calendar.components(first, periods);
  }
  return found;
}

}  // namespace vardynamics
