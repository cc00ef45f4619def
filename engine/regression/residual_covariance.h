// Covariance and correlation of the residuals of several equations.

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/linear_algebra/matrix.h"

namespace engine {

// Sums over the n residuals of each of K equations.
struct ResidualMoments {
  Matrix products;           // K x K: of e(i) e(j)
  std::vector<double> sums;  // of e(i); 0 without a constant in the regression, so that no mean is subtracted
  std::size_t count = 0;     // n
};

// V, K x K as row vectors, with means subtracted and divisor n. The residuals of a regression with a constant have
// means of the size of rounding errors, so that subtracting them from the sums costs no digit. Throws
// std::invalid_argument when there are no values.
std::vector<std::vector<double>> residualCovarianceMatrix(const ResidualMoments& moments);

// Sum of squared deviations of equation i's residuals from their mean, over n - k; 0 when there are none or n = k.
double residualVariance(const ResidualMoments& moments, std::size_t i, std::int64_t k);

struct CovarianceDeterminant {
  double value = 0.0;      // as computed: 0 or infinite where it leaves the range of doubles
  double logarithm = 0.0;  // right in any units; infinite where V is not positive definite in doubles
};

CovarianceDeterminant covarianceDeterminant(const std::vector<std::vector<double>>& covariance);

// The reciprocal 1-norm condition of the correlations of V, K x K; 0 when they have no inverse or a variance is 0.
double correlationCondition(const std::vector<std::vector<double>>& covariance);

// True when it is below K * 2.2e-16: in any units some series is predicted from the others without error.
bool isSingularCovariance(const std::vector<std::vector<double>>& covariance);

// True when a covariance determinant is too small to take logarithms of: the bound 1e-12 is absolute, in the product of
// the squared units of the series.
bool isSingularDeterminant(double determinant);

// R from V: R(i,i) = 1 and R(i,j) = V(i,j) / (s(i) s(j)) within -1..1, or 0 where s(i) s(j) is not above 1e-12. Empty
// when V is empty, not square, or has a negative diagonal entry.
std::vector<std::vector<double>> correlationFromCovariance(const std::vector<std::vector<double>>& covariance);

}  // namespace engine
