#include "procedures/vardynamics/analysis/lag_range.h"

#include <algorithm>

namespace vardynamics {

std::int32_t largestUsableLag(const ModelShape& shape) {
  const auto spareRows = [&](std::int64_t lag) {
    return shape.rows - std::max(lag, shape.exogenousLags) - shape.series * lag - shape.fixedRegressors;
  };
  std::int64_t lag = -1;
  while (spareRows(lag + 1) >= shape.series) ++lag;
  return static_cast<std::int32_t>(lag);
}

std::int32_t defaultMaxLag(const ModelShape& shape) {
  const std::int64_t customary = std::min<std::int64_t>(12, shape.rows / (4 * shape.series));
  const std::int64_t usable = largestUsableLag(shape);
  return static_cast<std::int32_t>(std::max<std::int64_t>(1, std::min(customary, usable)));
}

}  // namespace vardynamics
