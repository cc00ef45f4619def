// Where the periods of a sample stand in the dates' cycle.

#pragma once

#include <cstddef>
#include <vector>

namespace vardynamics {

// The unit and the components name the seasons: quarter 1, quarter 2, ..
struct Seasons {
  std::size_t cycle = 0;                   // seasons in a cycle; 0: none
  std::vector<std::size_t> ofPeriod = {};  // 0..cycle-1, for the sample's rows and the periods after them
  std::size_t beyond = 0;                  // periods after the last season that count as it: week 53
  int unitCode = 0;                        // of the finest date variable, as the host codes it
  std::vector<unsigned> components = {};   // of each season, in that unit
};

}  // namespace vardynamics
