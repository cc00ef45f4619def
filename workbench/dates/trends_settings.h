// The time-series settings of a dataset: its date variables and the range of forecasts.

#pragma once

#include <memory>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/dataset/dataset.h"
#include "workbench/dates/case_calendar.h"

namespace workbench {

struct DateVariable {
  int column = 0;
  int unitCode = 0;     // 2 year .. 10 observation
  int periodicity = 0;  // cycle length below the coarser unit; 0 for none
  double predictThru = kSystemMissing;
};

struct TrendsSettings {
  std::vector<DateVariable> dateVariables;
  bool businessDays = false;                           // the cases are days without Saturdays and Sundays
  std::shared_ptr<const Holidays> holidays = nullptr;  // business days that are no cases either; null: none
  Notice reading = {};                                 // what is to be told of how the dates were read
  bool predictSet = false;
  bool predictIsDate = false;
  long predictCase = 0;  // from 1; 0 with predictSet and no date means "through the end"
};

}  // namespace workbench
