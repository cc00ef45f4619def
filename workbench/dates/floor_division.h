// Division that rounds down, also of negative numbers.

#pragma once

#include <cstdint>

namespace workbench {

constexpr std::int64_t floorDivide(std::int64_t value, std::int64_t divisor) {
  return value / divisor - (value % divisor < 0 ? 1 : 0);
}

}  // namespace workbench
