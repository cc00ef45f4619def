// The unit-root tests of every series of a dataset, for `varmodel describe`.

#pragma once

#include <set>
#include <string>

#include "workbench/base/language.h"
#include "workbench/dataset/dataset.h"

namespace workbench {

// Shows a table of the tests with a verdict, and the transformations that make series stationary. Columns that hold no
// numbers, hardly any, or only one value are left out, and those named.
void showSeriesTests(const Dataset& dataset, const std::set<std::string>& leftOut, const Language& language);

}  // namespace workbench
