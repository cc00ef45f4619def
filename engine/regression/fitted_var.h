// A fitted vector autoregression, as everything that is made of one sees it.

#pragma once

#include <cstddef>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

// K equations on n rows with m regressors each, in this order: the constant if there is one, lag 1 of series 1..K, ..,
// lag p of series 1..K, then the known columns (trend, seasons, exogenous series). Row r of the regression is
// observation firstRow + r.
struct FittedVar {
  std::size_t lag = 0;  // p
  std::size_t firstRow = 0;
  bool constant = true;
  Matrix coefficients;                         // K x m
  std::vector<std::vector<double>> residuals;  // K of n: actual minus fitted
  Matrix inverse;                              // (Z'Z)^-1, m x m
};

}  // namespace engine
