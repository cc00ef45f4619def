#include "procedures/vardynamics/data/calendar.h"

#include <algorithm>
#include <span>

#include "host/dates.h"
#include "procedures/common/date_labels.h"
#include "procedures/common/predict_request.h"
#include "procedures/vardynamics/data/active_rows.h"
#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

// The date's components in one period, in the order of the date variables (coarsest first).
std::vector<unsigned> componentsOf(const TSXDateSpec& specification, std::size_t offset) {
  return specification.IndexTuple(static_cast<long>(offset)).GetIndexes();
}

}  // namespace

Calendar::Calendar(ProcedureDataSource& dataSource) : dataSource_(dataSource) {
  bool fetched = true;
  const procedures::SeriesFetch fetch = [&](std::span<const std::int32_t> indexes, procedures::SeriesMatrix& matrix) {
    auto outcome = fetchCases(dataSource, indexes, UserMissing::excluded, procedures::CaseDeletion::listwise, matrix);
    fetched = outcome.succeeded;
    return outcome;
  };
  const bool read = procedures::readPredictRequest(kOperations, dataSource, fetch, axis_);
  // Labels that a failure cut short would be those of another kind from there on.
  if (!read || !fetched || (hasDates() && std::ssize(axis_.historicalLabels) < axis_.observedRows)) {
    fail("The dates of the active dataset could not be read. Define them anew.");
  }
  if (hasDates()) finest_ = readFinest();
}

std::optional<std::int64_t> Calendar::predictOffset() const {
  if (!axis_.predictRequested || axis_.predictThruEnd) return std::nullopt;
  return procedures::predictTargetOffset(kOperations, dataSource_, axis_);
}

std::vector<std::string> Calendar::labels(std::size_t firstOffset, std::size_t count) const {
  std::vector<std::string> labels;
  const TfoDateHandler handler(dataSource_, nullptr, 0);
  const TSXDateSpec specification = handler.GetCurrDateSpec();
  for (std::size_t offset = firstOffset; offset < firstOffset + count; ++offset) {
    if (!hasDates()) {
      labels.push_back(std::to_string(offset + 1));
    } else if (offset < axis_.historicalLabels.size()) {
      labels.push_back(axis_.historicalLabels[offset]);
    } else {
      labels.push_back(handler.GetDateLabel(static_cast<long>(offset), specification));
    }
  }
  return labels;
}

Calendar::Finest Calendar::readFinest() const {
  const VEXA_TrendsInfo& trends = *dataSource_.GetDataSource()->GetTrendsInfo();
  Finest finest;
  for (int i = 0; i < trends.GetNDateVars(); ++i) {
    int column = 0;
    int unitCode = 0;
    int periodicity = 0;
    trends.GetDateVar(i, column, unitCode, periodicity);
    if (unitCode > finest.unitCode) finest = {.unitCode = unitCode, .periodicity = periodicity};
  }
  const TSXDateSpec specification = TfoDateHandler(dataSource_, nullptr, 0).GetCurrDateSpec();
  if (finest.periodicity <= 0 || specification.PeriodCount() == 0) return finest;
  const unsigned first = componentsOf(specification, 0).back();
  const unsigned second = componentsOf(specification, 1).back();
  const auto length = static_cast<unsigned>(finest.periodicity);
  finest.advance = std::max((second + length - first) % length, 1U);
  return finest;
}

std::size_t Calendar::cycle() const {
  const auto length = static_cast<std::size_t>(std::max(finest_.periodicity, 0));
  const bool whole = length % finest_.advance == 0 && length / finest_.advance > 1;
  return whole ? length / finest_.advance : 0;
}

// The 53rd week of a year counts as its 52nd.
Seasons Calendar::seasons(std::size_t firstOffset, std::size_t count) const {
  Seasons seasons;
  seasons.cycle = cycle();
  if (seasons.cycle == 0) return seasons;
  const TSXDateSpec specification = TfoDateHandler(dataSource_, nullptr, 0).GetCurrDateSpec();
  const unsigned origin = TfoDateHandler::VEXAIndexOrigin(PeriodType{finest_.unitCode});
  seasons.unitCode = finest_.unitCode;
  for (std::size_t i = 0; i < seasons.cycle; ++i) {
    seasons.components.push_back(origin + static_cast<unsigned>(i * finest_.advance));
  }
  for (std::size_t offset = firstOffset; offset < firstOffset + count; ++offset) {
    const unsigned component = componentsOf(specification, offset).back();
    const std::size_t season = (component - origin) / finest_.advance;
    if (season >= seasons.cycle) ++seasons.beyond;
    seasons.ofPeriod.push_back(std::min(season, seasons.cycle - 1));
  }
  return seasons;
}

SeriesList Calendar::components(std::size_t firstOffset, std::size_t count) const {
  SeriesList columns(dateVariableNames().size());
  if (columns.empty()) return columns;
  const TSXDateSpec specification = TfoDateHandler(dataSource_, nullptr, 0).GetCurrDateSpec();
  for (std::size_t offset = firstOffset; offset < firstOffset + count; ++offset) {
    const std::vector<unsigned> components = componentsOf(specification, offset);
    for (std::size_t i = 0; i < columns.size() && i < components.size(); ++i) {
      columns[i].push_back(static_cast<double>(components[i]));
    }
  }
  return columns;
}

}  // namespace vardynamics
