// Where the periods of a sample stand in the dates' cycle.

#pragma once

#include <cstddef>
#include <vector>

namespace vardynamics {

struct Seasons {
  std::size_t cycle = 0;                   // seasons in a cycle; 0: none
  std::vector<std::size_t> ofPeriod = {};  // 0..cycle-1, for the sample's rows and the periods after them
};

}  // namespace vardynamics
