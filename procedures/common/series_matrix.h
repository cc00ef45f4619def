// The series matrix: the values of the analysis variables over the cases that were kept.

#pragma once

#include <limits>
#include <vector>

namespace procedures {

// One column a variable, in list order; one value a kept case, in case order; all columns equally long.
using SeriesMatrix = std::vector<std::vector<double>>;

// The host's mark for a value that is not there.
inline constexpr double kSystemMissing = std::numeric_limits<double>::lowest();

}  // namespace procedures
