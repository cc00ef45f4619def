// Series in units near one, by powers of two, which round nothing: squares neither overflow nor vanish.

#pragma once

#include <span>
#include <vector>

namespace engine {

// The largest absolute value becomes 1 to 2. Zeros stay zeros; values are finite.
std::vector<double> inPlainUnits(std::span<const double> values);

// The same of what the values differ from the first: a high level takes no digits from what varies about it.
std::vector<double> aboutFirst(std::span<const double> values);

}  // namespace engine
