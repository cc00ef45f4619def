#include "procedures/common/predict_request.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <iostream>
#include <limits>

#include "procedures/common/date_labels.h"
#include "procedures/common/fetch.h"

namespace procedures {
namespace {

struct PredictSetting {
  bool isSet = false;
  bool isDate = false;
  long caseNumber = 0;
};

PredictSetting readSetting(const char* operation, const VEXA_TrendsInfo& trends) {
  PredictSetting setting;
  bool lowerSet = false;
  bool lowerIsDate = false;
  long lowerCase = 0;
  trends.GetPred(setting.isSet, setting.isDate, setting.caseNumber, lowerSet, lowerIsDate, lowerCase);
  std::cout << operation << " - qHi=" << setting.isSet << ", qHiDate=" << setting.isDate
            << ", hiCase=" << setting.caseNumber << '\n';
  return setting;
}

int unitCodeOf(const VEXA_TrendsInfo& trends, int dateVariable, int& column) {
  int unitCode = 0;
  int periodicity = 0;
  trends.GetDateVar(dateVariable, column, unitCode, periodicity);
  return unitCode;
}

void recordDateVariables(const VEXA_TrendsInfo& trends, VEXA_DataSource& dataset, TimeAxis& axis) {
  axis.dateVariableIndexes.clear();
  axis.dateVariableNames.clear();
  axis.timeUnitNames.clear();
  axis.hasDateVariables = trends.GetNDateVars() != 0;
  for (int i = 0; i < trends.GetNDateVars(); ++i) {
    int column = 0;
    const int unitCode = unitCodeOf(trends, i, column);
    const VEXA_Variable* variable = dataset.GetVariable(column);
    axis.dateVariableIndexes.push_back(column);
    axis.dateVariableNames.push_back(variable != nullptr ? variable->GetName() : std::string());
    axis.timeUnitNames.push_back(timeUnitName(unitCode));
  }
}

void fetchDateValues(const OperationNames& names, ProcedureDataSource& dataSource, const SeriesFetch& fetch,
                     TimeAxis& axis) {
  if (!axis.hasDateVariables) return;
  axis.dateValues.clear();
  axis.observedRows = fetch(axis.dateVariableIndexes, axis.dateValues).deliveredCases;
  generateHistoricalLabels(names, dataSource, axis);
}

// Components that the setting does not give, and those that name no unsigned 32-bit number, leave their slot alone.
void readPredictThruDate(const VEXA_TrendsInfo& trends, PredictThruDate& date) {
  for (int i = 0; i < trends.GetNDateVars(); ++i) {
    OBS high = kSystemMissing;
    OBS low = kSystemMissing;
    trends.GetPredVar(i, high, low);
    int column = 0;
    const int unitCode = unitCodeOf(trends, i, column);
    const bool fits = high > -1.0 && high < 4294967296.0;
    if (!fits || unitCode < kFirstUnitCode || unitCode > kLastUnitCode) continue;
    date[static_cast<std::size_t>(unitCode - kFirstUnitCode)] = static_cast<std::uint32_t>(high);
  }
}

std::int32_t asCaseNumber(long caseNumber) {
  constexpr std::int64_t kLargest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::min<std::int64_t>(caseNumber, kLargest));
}

// True when the setting needs no dates: it is a case number.
bool applySetting(const PredictSetting& setting, TimeAxis& axis) {
  axis.predictThruEnd = setting.isSet && !setting.isDate && setting.caseNumber < 1;
  axis.predictThruCase = 0;
  if (setting.isSet) axis.predictRequested = true;
  if (!setting.isSet) std::cout << "PREDICT THRU not specified - no forecasting will be performed\n";
  if (setting.isSet && !setting.isDate && !axis.predictThruEnd) {
    axis.predictThruCase = asCaseNumber(setting.caseNumber);
    return true;
  }
  return false;
}

void traceThroughEnd(const TimeAxis& axis) {
  if (!axis.predictThruEnd) return;
  std::cout << "PREDICT THRU END detected - using existing date variables without forecasting\n"
            << "Date variables found: " << axis.dateVariableIndexes.size() << '\n';
}

}  // namespace

const char* timeUnitName(int unitCode) {
  static constexpr std::array<const char*, 9> kNames = {"YEAR", "QUARTER", "MONTH",  "WEEK", "DAY",
                                                        "HOUR", "MINUTE",  "SECOND", "OBS"};
  if (unitCode < kFirstUnitCode || unitCode > kLastUnitCode) return "UNKNOWN";
  return kNames[static_cast<std::size_t>(unitCode - kFirstUnitCode)];
}

bool readPredictRequest(const OperationNames& names, ProcedureDataSource& dataSource, const SeriesFetch& fetch,
                        TimeAxis& axis) {
  try {
    VEXA_DataSource* dataset = dataSource.GetDataSource();
    const VEXA_TrendsInfo* trends = dataset != nullptr ? dataset->GetTrendsInfo() : nullptr;
    if (trends == nullptr) return false;
    axis.observedRows = dataset->CaseCount();
    const PredictSetting setting = readSetting(names.predictRequest, *trends);
    if (applySetting(setting, axis)) return true;
    recordDateVariables(*trends, *dataset, axis);
    fetchDateValues(names, dataSource, fetch, axis);
    traceThroughEnd(axis);
    if (setting.isSet && setting.isDate) readPredictThruDate(*trends, axis.predictThruDate);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace procedures
