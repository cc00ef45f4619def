// Which categories of an axis get a label.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace workbench {

// Equally spaced places from the first one on, at most `most` (>= 1) of them. Where the labels are dates that count
// something within a year, the steps are whole years or a year's divisors: "1959Q1", "1969Q1", ...
std::vector<std::size_t> categoryTicks(const std::vector<std::string>& labels, std::size_t most);

}  // namespace workbench
