#include <algorithm>

#include "workbench/base/errors.h"
#include "workbench/dates/case_label.h"
#include "workbench/dates/components.h"
#include "workbench/dates/date_setup.h"
#include "workbench/dates/date_text.h"
#include "workbench/dates/labels.h"

namespace workbench {

namespace {

constexpr const char* kPlace = "PREDICT THRU";

void requireHorizonInLimit(std::int64_t horizon, const std::string& target) {
  if (horizon <= kMaximumHorizon) return;
  throw UsageError(std::string(kPlace) + ": " + target + " lies " + std::to_string(horizon) +
                   " periods after the last case; at most " + std::to_string(kMaximumHorizon) + " are forecast.");
}

Period periodOfCase(const CaseCalendar& calendar, std::int64_t caseNumber) {
  if (const std::optional<Period> period = calendar.period(caseNumber - 1)) return *period;
  throw UsageError(std::string(kPlace) + ": the date of case " + std::to_string(caseNumber) +
                   " lies after the calendar's end (year 9999).");
}

TrendsSettings withPredictDate(TrendsSettings settings, const Period& target) {
  settings.predictIsDate = true;
  const std::vector<std::int64_t> components = target.components();
  const std::span<const Unit> units = unitsOf(target.unit());
  for (DateVariable& variable : settings.dateVariables) {
    const auto unit = std::ranges::find(units, *unitFromCode(variable.unitCode));
    variable.predictThru = static_cast<double>(components[static_cast<std::size_t>(unit - units.begin())]);
  }
  return settings;
}

TrendsSettings withPredictCase(const Dataset& dataset, std::int64_t caseNumber, TrendsSettings settings) {
  if (caseNumber < 1) {
    throw UsageError(std::string(kPlace) + ": case numbers count from 1, not " + std::to_string(caseNumber) + ".");
  }
  requireHorizonInLimit(caseNumber - static_cast<std::int64_t>(dataset.rowCount), "case " + std::to_string(caseNumber));
  if (const auto calendar = caseCalendar(dataset, settings)) {
    return withPredictDate(std::move(settings), periodOfCase(*calendar, caseNumber));
  }
  settings.predictCase = static_cast<long>(caseNumber);
  return settings;
}

CaseCalendar requireCalendar(const Dataset& dataset, const TrendsSettings& settings) {
  if (const std::optional<CaseCalendar> calendar = caseCalendar(dataset, settings)) return *calendar;
  throw UsageError(std::string(kPlace) +
                   " is a date, but the cases have no dates. Date them, for instance with --start year=1959 quarter=1 "
                   "or, in the job file, a table [dates] that holds start = { year = 1959, quarter = 1 }, or give a "
                   "number of periods (in a job file: a case number).");
}

Period periodFromText(const std::string& text, const Dataset& dataset, const CaseCalendar& calendar) {
  const Unit unit = calendar.first.unit();
  if (const std::optional<Period> period = readPeriod(text, unit)) return *period;
  const Period next = periodOfCase(calendar, static_cast<std::int64_t>(dataset.rowCount) + 1);
  throw UsageError(std::string(kPlace) + ": \"" + text + "\" is no " + std::string(unitName(unit)) +
                   ", and those are the periods of the cases. Write it as " + periodLabel(next) + ".");
}

TrendsSettings withPredictThru(const Dataset& dataset, const PredictRequest& request, TrendsSettings settings) {
  const CaseCalendar calendar = requireCalendar(dataset, settings);
  const Period target = request.period.empty() ? periodFromRequest(request.date, calendar.first.unit(), kPlace)
                                               : periodFromText(request.period, dataset, calendar);
  const std::int64_t lastOffset = static_cast<std::int64_t>(dataset.rowCount) - 1;
  const std::int64_t ahead = calendar.caseOffset(target) - lastOffset;
  requireHorizonInLimit(ahead, periodLabel(target));
  if (ahead < 1 && !request.period.empty()) {
    throw UsageError(std::string(kPlace) + ": " + periodLabel(target) + " does not lie after the last case (" +
                     periodLabel(*calendar.period(lastOffset)) + "). Give a later period, such as " +
                     periodLabel(periodOfCase(calendar, lastOffset + 2)) + ".");
  }
  return withPredictDate(std::move(settings), target);
}

}  // namespace

void definePredict(const Dataset& dataset, const PredictRequest& request, TrendsSettings& settings) {
  if (int{!request.date.empty()} + int{request.caseNumber.has_value()} + int{request.end} +
          int{!request.period.empty()} !=
      1) {
    throw UsageError(std::string(kPlace) + ": give a date, a case number or \"end\".");
  }
  TrendsSettings base = settings;
  base.predictSet = true;
  base.predictIsDate = false;
  base.predictCase = 0;
  for (DateVariable& variable : base.dateVariables) variable.predictThru = kSystemMissing;
  if (!request.date.empty() || !request.period.empty()) base = withPredictThru(dataset, request, std::move(base));
  if (request.caseNumber) base = withPredictCase(dataset, *request.caseNumber, std::move(base));
  settings = std::move(base);
}

std::int64_t periodsAhead(const Dataset& dataset, const TrendsSettings& settings) {
  const auto rows = static_cast<std::int64_t>(dataset.rowCount);
  if (!settings.predictIsDate) return settings.predictCase == 0 ? 0 : settings.predictCase - rows;
  std::map<Unit, std::int64_t> components;
  for (const DateVariable& variable : settings.dateVariables) {
    components[*unitFromCode(variable.unitCode)] = static_cast<std::int64_t>(variable.predictThru);
  }
  const CaseCalendar calendar = requireCalendar(dataset, settings);
  return calendar.caseOffset(periodFromRequest(components, calendar.first.unit(), kPlace)) - (rows - 1);
}

}  // namespace workbench
