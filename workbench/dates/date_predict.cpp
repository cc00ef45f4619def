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

void requireHorizonInLimit(std::int64_t horizon, const Notice& target) {
  if (horizon <= kMaximumHorizon) return;
  throw UsageError("predict.too-far",
                   "PREDICT THRU: ^1 lies ^2 periods after the last case; at most ^3 are forecast. Give fewer.", target,
                   horizon, kMaximumHorizon);
}

Period periodOfCase(const CaseCalendar& calendar, std::int64_t caseNumber) {
  if (const std::optional<Period> period = calendar.period(caseNumber - 1)) return *period;
  throw UsageError("predict.beyond-calendar",
                   "PREDICT THRU: the date of case ^1 lies after the calendar's end (year 9999). Give fewer periods.",
                   caseNumber);
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
    throw UsageError("predict.case-number", "PREDICT THRU: case numbers count from 1, not ^1.", caseNumber);
  }
  requireHorizonInLimit(caseNumber - static_cast<std::int64_t>(dataset.rowCount), phrase("case ^1", caseNumber));
  if (const auto calendar = caseCalendar(dataset, settings)) {
    return withPredictDate(std::move(settings), periodOfCase(*calendar, caseNumber));
  }
  settings.predictCase = static_cast<long>(caseNumber);
  return settings;
}

CaseCalendar requireCalendar(const Dataset& dataset, const TrendsSettings& settings) {
  if (const std::optional<CaseCalendar> calendar = caseCalendar(dataset, settings)) return *calendar;
  throw UsageError(
      "predict.no-dates",
      "PREDICT THRU is a date, but the cases have no dates. Date them, for instance with --start year=1959 "
      "quarter=1 "
      "or, in the job file, a table [dates] that holds start = { year = 1959, quarter = 1 }, or give a "
      "number of periods (in a job file: a case number).");
}

Period periodFromText(const std::string& text, const Dataset& dataset, const CaseCalendar& calendar) {
  const Unit unit = calendar.first.unit();
  if (const std::optional<Period> period = readPeriod(text, unit)) return *period;
  const Period next = periodOfCase(calendar, static_cast<std::int64_t>(dataset.rowCount) + 1);
  throw UsageError("predict.other-unit",
                   "PREDICT THRU: \"^1\" is no ^2, and those are the periods of the cases. Write it as ^3.", text,
                   unitPhrase(unit), periodLabel(next));
}

TrendsSettings withPredictThru(const Dataset& dataset, const PredictRequest& request, TrendsSettings settings) {
  const CaseCalendar calendar = requireCalendar(dataset, settings);
  const Period target = request.period.empty() ? periodFromRequest(request.date, calendar.first.unit(), kPlace)
                                               : periodFromText(request.period, dataset, calendar);
  const std::int64_t lastOffset = static_cast<std::int64_t>(dataset.rowCount) - 1;
  const std::int64_t ahead = calendar.caseOffset(target) - lastOffset;
  requireHorizonInLimit(ahead, periodLabel(target));
  if (ahead < 1 && !request.period.empty()) {
    throw UsageError("predict.past",
                     "PREDICT THRU: ^1 does not lie after the last case (^2). Give a later period, such as ^3.",
                     periodLabel(target), periodLabel(*calendar.period(lastOffset)),
                     periodLabel(periodOfCase(calendar, lastOffset + 2)));
  }
  return withPredictDate(std::move(settings), target);
}

// "2011" is a year of yearly cases, and so many periods of others.
PredictRequest settled(const Dataset& dataset, const TrendsSettings& settings, PredictRequest request) {
  const std::optional<CaseCalendar> calendar = caseCalendar(dataset, settings);
  if (!request.periodsUnlessYear || (calendar && calendar->first.unit() == Unit::year)) return request;
  return {.date = {},
          .caseNumber = static_cast<std::int64_t>(dataset.rowCount) + *request.periodsUnlessYear,
          .end = false,
          .period = {}};
}

}  // namespace

void definePredict(const Dataset& dataset, const PredictRequest& asked, TrendsSettings& settings) {
  const PredictRequest request = settled(dataset, settings, asked);
  if (int{!request.date.empty()} + int{request.caseNumber.has_value()} + int{request.end} +
          int{!request.period.empty()} !=
      1) {
    throw UsageError("predict.one-way", "PREDICT THRU: give a date, a case number or \"end\".");
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
