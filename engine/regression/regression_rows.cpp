#include "engine/regression/regression_rows.h"

#include <algorithm>

namespace engine {

std::int64_t regressorCount(std::size_t endogenousCount, std::size_t exogenousCount, std::int32_t lag) {
  return static_cast<std::int64_t>(exogenousCount) + 1 + lag * static_cast<std::int64_t>(endogenousCount);
}

bool seriesAreAligned(const std::vector<std::vector<double>>& endogenous,
                      const std::vector<std::vector<double>>& exogenous, std::size_t length) {
  const auto aligned = [length](const std::vector<double>& series) { return series.size() == length; };
  return std::ranges::all_of(endogenous, aligned) && std::ranges::all_of(exogenous, aligned);
}

}  // namespace engine
