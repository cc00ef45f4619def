// The dates that the columns of a dataset hold, row by row.

#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/dataset/dataset.h"
#include "workbench/dates/inference.h"
#include "workbench/dates/regularity.h"

namespace workbench {

struct DatedRows {
  std::vector<Period> periods;  // of one unit, one for each row
  Frequency frequency;
  DateSource source;
  Notice reading = {};  // what is to be told where days and months could be read in both orders
  std::shared_ptr<const Holidays> holidays = nullptr;

  CaseCalendar calendar() const { return {periods.front(), frequency.step, frequency.businessDays, holidays}; }
};

// Of a column of dates, timestamps, texts or numbers. Where texts can be read in several ways (2001:3, 3/4/2001), they
// are read in the one that gives evenly spaced dates. A DATE column whose days and months are all 1 to 12 is read with
// both exchanged where that alone gives evenly spaced dates. Where both orders of day and month give such dates, or a
// DATE column is exchanged, `reading` says which was taken; `exchange` takes the other. Throws UsageError when there is
// no such column or it holds no dates at all, DataError for single rows that hold none and for a single row.
DatedRows datedByColumn(const Dataset& dataset, const std::string& name, bool exchange = false);

// Of numeric columns that hold the components. Throws as above.
DatedRows datedByComponents(const Dataset& dataset, const std::map<Unit, std::string>& variables);

// The columns' indexes, one for each unit of the finest one.
std::vector<int> componentColumns(const Dataset& dataset, const std::map<Unit, std::string>& variables);

}  // namespace workbench
