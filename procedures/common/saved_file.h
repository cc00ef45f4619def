// Filling a new data file: numeric variables, one case a row.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "host/case_file.h"

namespace procedures {

// Adds a numeric variable of scale level, shown with three decimals; false when the host refuses it or a property of
// it.
bool defineVariable(UserOutputCaseFile& file, const std::string& name, const std::string& label);

// Writes `caseCount` cases: variable j takes its values from columns[j] and stays missing where that is shorter. Stops
// at the first case that the host refuses; returns how many were written.
std::size_t writeCases(UserOutputCaseFile& file, std::span<const std::vector<double>* const> columns,
                       std::size_t caseCount);

}  // namespace procedures
