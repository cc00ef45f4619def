#include "engine/dynamics/decompositions.h"

namespace engine {
namespace {

// Sums of squares over the horizons up to each.
std::vector<Matrix> squaredSums(std::span<const Matrix> responses) {
  std::vector<Matrix> sums;
  Matrix sum(responses.front().rows, responses.front().columns);
  for (const Matrix& one : responses) {
    for (std::size_t i = 0; i < sum.values.size(); ++i) sum.values[i] += one.values[i] * one.values[i];
    sums.push_back(sum);
  }
  return sums;
}

double rowSum(const Matrix& a, std::size_t i) {
  double sum = 0.0;
  for (const double value : a.row(i)) sum += value;
  return sum;
}

void divideRow(Matrix& a, std::size_t i, double divisor) {
  for (double& value : a.row(i)) value /= divisor;
}

}  // namespace

std::vector<Matrix> normalisedShares(std::vector<Matrix> shares) {
  for (Matrix& one : shares) {
    for (std::size_t i = 0; i < one.rows; ++i) divideRow(one, i, rowSum(one, i));
  }
  return shares;
}

std::vector<Matrix> varianceShares(std::span<const Matrix> orthogonalResponses) {
  return normalisedShares(squaredSums(orthogonalResponses));
}

std::vector<Matrix> generalizedShares(std::span<const Matrix> generalizedResponses,
                                      std::span<const Matrix> orthogonalResponses) {
  std::vector<Matrix> shares = squaredSums(generalizedResponses);
  const std::vector<Matrix> variances = squaredSums(orthogonalResponses);
  for (std::size_t h = 0; h < shares.size(); ++h) {
    for (std::size_t i = 0; i < shares[h].rows; ++i) divideRow(shares[h], i, rowSum(variances[h], i));
  }
  return shares;
}

}  // namespace engine
