// Which columns could date the cases.

#pragma once

#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/dataset/dataset.h"
#include "workbench/dates/requests.h"

namespace workbench {

struct DateGuess {
  DatesRequest request;
  Notice fault;            // why the rows are refused as they stand; empty when they are not
  Unit unit = Unit::year;  // the rest only without a fault
  std::int64_t step = 1;
  bool businessDays = false;
  std::string first;  // labels of the first and the last case
  std::string last;
};

// Columns named after units (year and quarter, year and month, ...) come first, then columns of dates, texts and
// numbers that hold dates. Columns that hold none are left out.
std::vector<DateGuess> guessDates(const Dataset& dataset);

}  // namespace workbench
