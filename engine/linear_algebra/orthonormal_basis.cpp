#include "engine/linear_algebra/orthonormal_basis.h"

#include <cassert>
#include <cmath>
#include <limits>
#include <utility>

#include "engine/arithmetic/moments.h"
#include "engine/arithmetic/scaled_addition.h"

namespace engine {

double dotProduct(std::span<const double> x, std::span<const double> y) {
  assert(x.size() == y.size());
  double sum = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) sum += x[i] * y[i];
  return sum;
}

Matrix columnProducts(std::span<const std::vector<double>> a, std::span<const std::vector<double>> b) {
  Matrix result(a.size(), b.size());
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t j = 0; j < b.size(); ++j) result(i, j) = dotProduct(a[i], b[j]);
  }
  return result;
}

void OrthonormalBasis::removeFrom(std::vector<double>& column, std::size_t first) const {
  for (int pass = 0; pass < 2; ++pass) {
    for (std::size_t i = first; i < vectors_.size(); ++i) {
      addScaled(-dotProduct(vectors_[i], column), vectors_[i].data(), column.data(), column.size());
    }
  }
}

bool OrthonormalBasis::append(std::span<const double> column) {
  double largest = 0.0;
  for (const double value : column) largest = std::fmax(largest, std::abs(value));
  if (!(largest > 0.0) || !std::isfinite(largest)) return false;
  std::vector<double> rest(column.begin(), column.end());
  for (double& value : rest) value /= largest;  // squares neither overflow nor vanish
  const double length = std::sqrt(sumOfSquares(rest));
  removeFrom(rest);
  const double remaining = std::sqrt(sumOfSquares(rest));
  const double tolerance = static_cast<double>(rest.size()) * std::numeric_limits<double>::epsilon();
  if (!(remaining > tolerance * length)) return false;
  for (double& value : rest) value /= remaining;
  vectors_.push_back(std::move(rest));
  return true;
}

Matrix OrthonormalBasis::coordinates(std::span<const std::vector<double>> columns, std::size_t first) const {
  return columnProducts(std::span(vectors_).subspan(first), columns);
}

}  // namespace engine
