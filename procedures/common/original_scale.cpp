#include "procedures/common/original_scale.h"

#include <algorithm>
#include <limits>

#include "host/original_scale.h"
#include "procedures/common/series_matrix.h"

namespace procedures {

#if defined(HOST_ORIGINAL_SCALE)

std::optional<OriginalScale> originalScale(std::int32_t variable) {
  HostOriginalSeries series{};
  if (&HostOriginalSeriesOf == nullptr || !HostOriginalSeriesOf(variable, &series)) return std::nullopt;
  OriginalScale scale{.change = static_cast<ScaleChange>(series.change),
                      .factor = series.factor,
                      .lag = static_cast<std::size_t>(series.lag),
                      .values = {series.values, series.values + series.cases}};
  std::ranges::replace(scale.values, kSystemMissing, std::numeric_limits<double>::quiet_NaN());
  return scale;
}

#else

std::optional<OriginalScale> originalScale(std::int32_t) {
  return std::nullopt;
}

#endif

}  // namespace procedures
