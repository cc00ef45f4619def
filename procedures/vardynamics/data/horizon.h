// How many periods are forecast, and whether everything that a forecast needs is known for them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "procedures/vardynamics/data/sample.h"

namespace vardynamics {

inline constexpr std::size_t kLongestHorizon = 1000;

struct HorizonRequest {
  std::optional<std::size_t> periods = {};         // HORIZON
  std::optional<std::int64_t> predictOffset = {};  // case offset of the session's PREDICT target
  std::size_t cycle = 0;                           // of the dates; 0: none
};

// HORIZON, else up to the PREDICT target where that lies after the last row, else the future rows, else two cycles of
// the dates, else 8. May exceed the longest horizon.
std::size_t forecastHorizon(const HorizonRequest& request, const Sample& sample);

// The first future value of an exogenous series that is not known; step counts from 0.
struct MissingFutureValue {
  std::size_t step = 0;
  std::size_t series = 0;
};
std::optional<MissingFutureValue> firstMissingFutureValue(const Sample& sample, std::size_t horizon);

// Whether any endogenous value is held within the horizon.
bool holdsCondition(const Sample& sample, std::size_t horizon);

}  // namespace vardynamics
