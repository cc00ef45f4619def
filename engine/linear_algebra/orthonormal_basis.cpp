#include "engine/linear_algebra/orthonormal_basis.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <utility>

#include "engine/arithmetic/moments.h"
#include "engine/arithmetic/scaled_addition.h"

namespace engine {
namespace {

constexpr std::size_t kAtOnce = 4;       // sums that do not wait for one another
constexpr std::size_t kBlockRows = 512;  // of some twenty columns stay in the cache

// Adds x'y of kAtOnce columns y over the rows of a block; each sum goes on from left to right.
void addProducts(std::span<const double> x, std::span<const std::vector<double>> y, std::size_t firstRow,
                 double* result) {
  const double* const y0 = y[0].data() + firstRow;
  const double* const y1 = y[1].data() + firstRow;
  const double* const y2 = y[2].data() + firstRow;
  const double* const y3 = y[3].data() + firstRow;
  double sum0 = result[0], sum1 = result[1], sum2 = result[2], sum3 = result[3];
  for (std::size_t r = 0; r < x.size(); ++r) {
    sum0 += x[r] * y0[r];
    sum1 += x[r] * y1[r];
    sum2 += x[r] * y2[r];
    sum3 += x[r] * y3[r];
  }
  result[0] = sum0, result[1] = sum1, result[2] = sum2, result[3] = sum3;
}

void addProduct(std::span<const double> x, const std::vector<double>& y, std::size_t firstRow, double& result) {
  double sum = result;
  for (std::size_t r = 0; r < x.size(); ++r) sum += x[r] * y[firstRow + r];
  result = sum;
}

}  // namespace

double dotProduct(std::span<const double> x, std::span<const double> y) {
  assert(x.size() == y.size());
  double sum = 0.0;
  for (std::size_t i = 0; i < x.size(); ++i) sum += x[i] * y[i];
  return sum;
}

Matrix columnProducts(std::span<const std::vector<double>> a, std::span<const std::vector<double>> b) {
  Matrix result(a.size(), b.size());
  const std::size_t rows = a.empty() ? 0 : a.front().size();
  for (std::size_t first = 0; first < rows; first += kBlockRows) {
    for (std::size_t i = 0; i < a.size(); ++i) {
      const auto x = std::span(a[i]).subspan(first, std::min(kBlockRows, rows - first));
      std::size_t j = 0;
      for (; j + kAtOnce <= b.size(); j += kAtOnce) addProducts(x, b.subspan(j, kAtOnce), first, &result(i, j));
      for (; j < b.size(); ++j) addProduct(x, b[j], first, result(i, j));
    }
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
