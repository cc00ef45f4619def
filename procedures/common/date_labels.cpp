#include "procedures/common/date_labels.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <utility>

#include "host/dates.h"
#include "procedures/common/predict_request.h"
#include "procedures/common/trace.h"

namespace procedures {
namespace {

constexpr const char* kThruInThePast = " PREDICT THRU date is before the last observed date.";

std::string caseNumberText(std::int64_t caseOffset) {
  return std::to_string(caseOffset + 1);
}

// Runs `work`; an exception ends it with a trace line.
template <typename Work>
void guarded(const std::string& lead, Work work) {
  try {
    work();
  } catch (const std::exception& error) {
    std::cout << lead << "Exception: " << OneLine{error.what()} << '\n';
  } catch (...) {
    std::cout << lead << "Unknown exception\n";
  }
}

std::optional<int> findDateText(const std::string& lead, VEXA_DataSource& dataset) {
  const int columnCount = static_cast<int>(dataset.ColumnCount());
  for (int column = 0; column < columnCount; ++column) {
    const VEXA_Variable* variable = dataset.GetVariable(column);
    if (variable == nullptr || variable->GetName() != "DATE_" || variable->GetType() <= 0) continue;
    std::cout << lead << "Found DATE_ variable at index " << column << ", with width " << variable->GetType() << '\n';
    return column;
  }
  return std::nullopt;
}

void labelsFromDateText(VEXA_DataSource& dataset, int column, TimeAxis& axis) {
  VEXA_InputCaseIterator cases = dataset.GetInputCaseIterator();
  while (std::ssize(axis.historicalLabels) < axis.observedRows && cases.NextCase()) {
    std::string label = cases.GetStringValue(column);
    label.erase(label.find_last_not_of(' ') + 1);
    axis.historicalLabels.push_back(std::move(label));
  }
}

void labelsFromDateHandler(const std::string& lead, ProcedureDataSource& dataSource, TimeAxis& axis) {
  std::cout << lead << "DATE_ not found, using TfoDateHandler fallback\n";
  const TfoDateHandler handler(dataSource, nullptr, 0);
  const TSXDateSpec specification = handler.GetCurrDateSpec();
  for (std::int64_t i = 0; i < axis.observedRows; ++i) {
    axis.historicalLabels.push_back(handler.GetDateLabel(static_cast<long>(i), specification));
  }
}

void labelObservedRows(const std::string& lead, ProcedureDataSource& dataSource, TimeAxis& axis) {
  VEXA_DataSource& dataset = *dataSource.GetDataSource();
  if (const std::optional<int> column = findDateText(lead, dataset)) labelsFromDateText(dataset, *column, axis);
  if (axis.historicalLabels.empty()) labelsFromDateHandler(lead, dataSource, axis);
}

std::vector<PeriodType> periodsOf(const TSXDateSpec& specification) {
  std::vector<PeriodType> periods;
  for (int i = 0; i < specification.PeriodCount(); ++i) {
    PeriodType unit{};
    if (specification.GetPeriod(i, unit)) periods.push_back(unit);
  }
  return periods;
}

std::vector<unsigned> componentsOf(const PredictThruDate& date, const std::vector<PeriodType>& periods) {
  std::vector<unsigned> components;
  for (const PeriodType unit : periods) {
    const bool hasSlot = unit >= kFirstUnitCode && unit <= kLastUnitCode;
    components.push_back(hasSlot ? date[static_cast<std::size_t>(unit - kFirstUnitCode)] : 0);
  }
  return components;
}

void fillFromOrigins(const std::vector<PeriodType>& periods, std::vector<unsigned>& components) {
  for (std::size_t i = 0; i < periods.size(); ++i) {
    if (components[i] == 0) components[i] = TfoDateHandler::VEXAIndexOrigin(periods[i]);
  }
}

// The case offset of the PREDICT THRU date; none when it names no period of the date specification.
std::optional<std::int64_t> dateTargetOffset(const std::string& lead, const PredictThruDate& date,
                                             const TSXDateSpec& specification) {
  const std::vector<PeriodType> periods = periodsOf(specification);
  std::vector<unsigned> components = componentsOf(date, periods);
  TSXDateSpec::TSXIndexTuple tuple(specification);
  if (tuple.SetIndexes(components)) return tuple.ClosestCaseOffset(false);
  std::cout << lead << "SetIndexes failed, using KORVEL approach\n";
  fillFromOrigins(periods, components);
  if (tuple.SetIndexes(components)) return tuple.ClosestCaseOffset(false);
  std::cerr << "Warning: " << lead << "the PREDICT THRU date names no period of the active dataset\n";
  return std::nullopt;
}

// How many periods lie after the last observed one up to the target; 0 leaves the reason in the held warning.
std::int64_t forecastHorizon(const std::string& lead, std::int64_t lastOffset, std::int64_t targetOffset,
                             TimeAxis& axis) {
  std::cout << lead << "Date validation:\n"
            << "  Last observed case offset: " << lastOffset << '\n'
            << "  Target PREDICT THRU offset: " << targetOffset << '\n';
  if (targetOffset <= lastOffset) {
    axis.heldWarning = kNoForecastsWarning;
    if (targetOffset < lastOffset) axis.heldWarning += kThruInThePast;
    return 0;
  }
  std::cout << "  Forecast periods to generate: " << targetOffset - lastOffset << '\n';
  return targetOffset - lastOffset;
}

template <typename LabelOf>
void labelForecasts(const std::string& lead, std::int64_t lastOffset, std::int64_t targetOffset, LabelOf labelOf,
                    TimeAxis& axis) {
  const std::int64_t horizon = forecastHorizon(lead, lastOffset, targetOffset, axis);
  for (std::int64_t j = 1; j <= horizon; ++j) {
    const std::int64_t offset = lastOffset + j;
    axis.forecastLabels.push_back({labelOf(offset), offset});
    std::cout << "Forecast period " << j << ": caseOffset=" << offset << ", dateLabel='"
              << OneLine{axis.forecastLabels.back().text} << "'\n";
  }
}

void labelForecastsByDate(const std::string& lead, ProcedureDataSource& dataSource, std::int64_t lastOffset,
                          TimeAxis& axis) {
  const TfoDateHandler handler(dataSource, nullptr, 0);
  const TSXDateSpec specification = handler.GetCurrDateSpec();
  const auto labelOf = [&](std::int64_t offset) {
    return handler.GetDateLabel(static_cast<long>(offset), specification);
  };
  const std::optional<std::int64_t> target = dateTargetOffset(lead, axis.predictThruDate, specification);
  if (target) labelForecasts(lead, lastOffset, *target, labelOf, axis);
}

bool anyComponent(const PredictThruDate& date) {
  return std::any_of(date.begin(), date.end(), [](std::uint32_t component) { return component != 0; });
}

std::vector<std::string> labelsOfKeptCases(const TimeAxis& axis) {
  std::vector<std::string> labels;
  for (const std::int64_t offset : axis.keptCaseOffsets) {
    if (axis.predictThruCase > 0) {
      labels.push_back(caseNumberText(offset));
    } else if (offset < std::ssize(axis.historicalLabels)) {
      labels.push_back(axis.historicalLabels[static_cast<std::size_t>(offset)]);
    } else {
      return {};
    }
  }
  return labels;
}

}  // namespace

void generateHistoricalLabels(const OperationNames& names, ProcedureDataSource& dataSource, TimeAxis& axis) {
  const std::string lead = names.lead(names.historicalLabels);
  axis.historicalLabels.clear();
  if (!axis.hasDateVariables) {
    std::cout << lead << "No date data available\n";
    return;
  }
  guarded(lead, [&] { labelObservedRows(lead, dataSource, axis); });
}

std::optional<std::int64_t> predictTargetOffset(const OperationNames& names, ProcedureDataSource& dataSource,
                                                const TimeAxis& axis) {
  if (axis.predictThruCase > 0) return axis.predictThruCase - 1;
  if (!anyComponent(axis.predictThruDate)) return std::nullopt;
  const TSXDateSpec specification = TfoDateHandler(dataSource, nullptr, 0).GetCurrDateSpec();
  return dateTargetOffset(names.lead(names.forecastLabels), axis.predictThruDate, specification);
}

void generateForecastLabels(const OperationNames& names, ProcedureDataSource& dataSource,
                            std::int64_t lastObservedOffset, TimeAxis& axis) {
  const std::string lead = names.lead(names.forecastLabels);
  axis.forecastLabels.clear();
  axis.heldWarning.clear();
  guarded(lead, [&] {
    if (axis.predictThruCase > 0) {
      labelForecasts(lead, lastObservedOffset, axis.predictThruCase - 1, caseNumberText, axis);
    } else if (anyComponent(axis.predictThruDate)) {
      labelForecastsByDate(lead, dataSource, lastObservedOffset, axis);
    }
  });
}

void followKeptCases(const OperationNames& names, ProcedureDataSource& dataSource,
                     std::vector<std::int64_t> keptCaseOffsets, TimeAxis& axis) {
  axis.keptCaseOffsets = std::move(keptCaseOffsets);
  axis.historicalLabels = labelsOfKeptCases(axis);
  const bool forecasting = axis.predictRequested && !axis.predictThruEnd && !axis.keptCaseOffsets.empty();
  if (!forecasting || axis.keptCaseOffsets.back() == axis.observedRows - 1) return;
  generateForecastLabels(names, dataSource, axis.keptCaseOffsets.back(), axis);
}

}  // namespace procedures
