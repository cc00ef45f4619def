// The cross-products of all regressors and targets of a family of vector autoregressions, without their design matrix.

#pragma once

#include <vector>

#include "engine/arithmetic/planes.h"
#include "engine/linear_algebra/matrix.h"
#include "engine/regression/lag_data.h"

namespace engine {

// Z'Z of the centred regressors of MAXLAG (k of them, in LagData's order) and the K targets, whose columns start at
// `targetColumn`, k rounded up to whole tiles. Rows and columns of the k regressors of any smaller lag come first. Only
// the rows of regressors, on and right of the diagonal, and the columns of targets are filled. Y'Y of the targets
// stands beside it.
template <class Real>
struct LagCrossProducts {
  Planes<Real> products;
  Matrix targets;  // K x K, rounded
  std::size_t targetColumn = 0;
};

// Sums over the rows t = firstRow .. T - 1: in blocks of 256 rows, each block from zero in ascending order, then block
// after block. Of the products of two lags only the rows that all pairs of lags of the same distance share are summed
// once; each pair adds the few rows at either end that are its own. Nothing is ever subtracted, so that no value costs
// digits of a sum that it is not part of.
template <class Real>
LagCrossProducts<Real> lagCrossProducts(const LagData& data);

extern template LagCrossProducts<double> lagCrossProducts(const LagData&);
extern template LagCrossProducts<DoubleDouble> lagCrossProducts(const LagData&);

}  // namespace engine
