// Data sets that are hard on least squares.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "bench/simulated_var.h"

namespace bench {

using Series = std::vector<std::vector<double>>;

struct Sample {
  std::string family;
  std::string name;
  Series endogenous;
  Series exogenous;
  std::int32_t maxLag;
};

// Over 200, seeded: outliers and fill codes in any row, units, levels, collinear regressors, trends, long series that
// are computed in doubles, and the series of examples/us_macro_quarterly.csv.
std::vector<Sample> hostileSamples();

}  // namespace bench
