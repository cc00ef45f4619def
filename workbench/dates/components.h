// Dates as components: those a user writes, and those that columns hold.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/dataset/dataset.h"
#include "workbench/dates/period.h"
#include "workbench/dates/requests.h"

namespace workbench {

// Throws UsageError unless exactly the units that a date of the finest unit is made of are given, coarsest first.
// `place` is where they were written, for the message: "[dates] start".
void requireUnits(const std::vector<Unit>& given, Unit finest, const Notice& place);

// The period that the components name. Throws UsageError as above, and when there is no such period.
Period periodFromRequest(const DateComponents& components, Unit finest, const Notice& place);

// "month must be 1 to 12, not 13"; nothing when the components (one for each of unitsOf(finest)) name a period.
Notice componentFault(Unit finest, std::span<const std::int64_t> components);

// The columns of one dataset that hold the components of its cases' dates.
struct DateColumns {
  Unit finest;
  std::vector<int> columns;  // one for each of unitsOf(finest)

  std::optional<Period> period(const Dataset& dataset, std::size_t row) const;
  // Why the row holds no date; nothing when it holds one.
  Notice fault(const Dataset& dataset, std::size_t row) const;
};

}  // namespace workbench
