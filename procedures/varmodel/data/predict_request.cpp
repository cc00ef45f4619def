#include "procedures/varmodel/data/predict_request.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <exception>
#include <iostream>
#include <limits>

#include "procedures/varmodel/data/date_labels.h"
#include "procedures/varmodel/data/fetch.h"

namespace varmodel {
namespace {

struct PredictSetting {
  bool isSet = false;
  bool isDate = false;
  long caseNumber = 0;
};

PredictSetting readSetting(const VEXA_TrendsInfo& trends) {
  PredictSetting setting;
  bool lowerSet = false;
  bool lowerIsDate = false;
  long lowerCase = 0;
  trends.GetPred(setting.isSet, setting.isDate, setting.caseNumber, lowerSet, lowerIsDate, lowerCase);
  std::cout << "getPredictThruFromTrendsInfo - qHi=" << setting.isSet << ", qHiDate=" << setting.isDate
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

void fetchDateValues(ProcedureDataSource& dataSource, const std::string& userMissing, TimeAxis& axis) {
  if (!axis.hasDateVariables) return;
  axis.dateValues.clear();
  axis.observedRows = fetchSeries(dataSource, axis.dateVariableIndexes, userMissing, axis.dateValues).deliveredCases;
  generateHistoricalLabels(dataSource, axis);
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
  constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::min<std::int64_t>(caseNumber, largest));
}

void applySetting(const PredictSetting& setting, const VEXA_TrendsInfo& trends, ProcedureDataSource& dataSource,
                  const std::string& userMissing, TimeAxis& axis) {
  axis.predictThruEnd = setting.isSet && !setting.isDate && setting.caseNumber < 1;
  axis.predictThruCase = 0;
  if (setting.isSet) axis.predictRequested = true;
  if (!setting.isSet) std::cout << "PREDICT THRU not specified - no forecasting will be performed\n";
  if (setting.isSet && !setting.isDate && !axis.predictThruEnd) {
    axis.predictThruCase = asCaseNumber(setting.caseNumber);
    return;
  }
  recordDateVariables(trends, *dataSource.GetDataSource(), axis);
  fetchDateValues(dataSource, userMissing, axis);
  if (axis.predictThruEnd) {
    std::cout << "PREDICT THRU END detected - using existing date variables without forecasting\n"
              << "Date variables found: " << axis.dateVariableIndexes.size() << '\n';
  }
  if (setting.isSet && setting.isDate) readPredictThruDate(trends, axis.predictThruDate);
}

}  // namespace

const char* timeUnitName(int unitCode) {
  static constexpr std::array<const char*, 9> names = {"YEAR", "QUARTER", "MONTH",  "WEEK", "DAY",
                                                       "HOUR", "MINUTE",  "SECOND", "OBS"};
  if (unitCode < kFirstUnitCode || unitCode > kLastUnitCode) return "UNKNOWN";
  return names[static_cast<std::size_t>(unitCode - kFirstUnitCode)];
}

bool readPredictRequest(ProcedureDataSource& dataSource, const std::string& userMissing, TimeAxis& axis) {
  try {
    VEXA_DataSource* dataset = dataSource.GetDataSource();
    const VEXA_TrendsInfo* trends = dataset != nullptr ? dataset->GetTrendsInfo() : nullptr;
    if (trends == nullptr) return false;
    axis.observedRows = dataset->CaseCount();
    applySetting(readSetting(*trends), *trends, dataSource, userMissing, axis);
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace varmodel
