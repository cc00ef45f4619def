// The cross-products of all regressors and targets of a family of vector autoregressions, without their design matrix.

#pragma once

#include <vector>

#include "engine/arithmetic/planes.h"
#include "engine/regression/lag_data.h"

namespace engine {

// Z'Z of the centred regressors of MAXLAG (k of them, in LagData's order) and the K targets, whose columns start at
// `targetColumn`, k rounded up to whole tiles. Rows and columns of the k regressors of any smaller lag come first. Only
// the rows of regressors, on and right of the diagonal, and the columns of targets are filled.
template <class Real>
struct LagCrossProducts {
  Planes<Real> products;
  std::size_t targetColumn = 0;
  // False when some lagged sum of squares is so much smaller than that of its series that subtracting end terms cost it
  // digits: an outlier in the last rows does that.
  bool digitsKept = true;
};

// Sums over the rows t = MAXLAG .. T - 1: in blocks of 256 rows, each block from zero in ascending order, then block
// after block. Only the products with the unlagged series are summed; the products of lags l + 1 and m + 1 are those of
// l and m plus the terms of the row that enters less those of the row that leaves, in twice the precision.
template <class Real>
LagCrossProducts<Real> lagCrossProducts(const LagData& data);

extern template LagCrossProducts<double> lagCrossProducts(const LagData&);
extern template LagCrossProducts<DoubleDouble> lagCrossProducts(const LagData&);

}  // namespace engine
