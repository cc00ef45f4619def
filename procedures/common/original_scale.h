// What the host says of the series that a variable was made from.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace procedures {

enum class ScaleChange { logarithm, difference, logDifference, percentage };

// As host/original_scale.h has it; values of all cases, NaN where one is missing.
struct OriginalScale {
  ScaleChange change = ScaleChange::difference;
  double factor = 1.0;
  std::size_t lag = 0;
  std::vector<double> values = {};
};

// Nothing for a variable that holds what the data held, and in a host that does not say.
std::optional<OriginalScale> originalScale(std::int32_t variable);

}  // namespace procedures
