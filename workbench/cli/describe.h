// What a data file holds, and what would be refused of it.

#pragma once

#include "workbench/cli/options.h"

namespace workbench {

// Shows the variables with types, ranges and missing values, how the cases can be dated, and every note on the data.
// Returns 0; throws UsageError and DataError as a run on the data does.
int describeData(const DescribeOptions& options);

}  // namespace workbench
