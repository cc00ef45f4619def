#include "engine/linear_algebra/correlations.h"

#include <cmath>

namespace engine {

Matrix correlations(const Matrix& covariance) {
  Matrix result(covariance.rows, covariance.columns);
  for (std::size_t i = 0; i < covariance.rows; ++i) {
    for (std::size_t j = 0; j < covariance.columns; ++j) {
      // Two roots: the product of the variances of series in tiny units would leave the range of doubles.
      const double scale = std::sqrt(covariance(i, i)) * std::sqrt(covariance(j, j));
      result(i, j) = i == j ? 1.0 : covariance(i, j) / scale;
    }
  }
  return result;
}

}  // namespace engine
