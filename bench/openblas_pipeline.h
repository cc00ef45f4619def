// The strongest pipeline that one would write with OpenBLAS and LAPACK for the same job.

#pragma once

#include <cstddef>
#include <vector>

namespace bench {

struct PipelineFit {
  std::vector<double> coefficients;  // column-major, k x K
  std::vector<double> inverse;       // (X'X)^-1, k x k
  std::vector<double> residuals;     // column-major, n x K
};

// For every lag 1..maxLag on the rows of maxLag: one dsyrk over [X Y] of maxLag, dgetrf and dgetri of its corner for
// each lag, dgemm for coefficients and residuals. Nothing else: no covariance, criteria, tests or standard errors.
std::vector<PipelineFit> fitWithOpenBlas(const std::vector<std::vector<double>>& series, std::size_t maxLag);

}  // namespace bench
