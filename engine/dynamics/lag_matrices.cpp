#include "engine/dynamics/lag_matrices.h"

#include <algorithm>

#include "engine/dynamics/fit_parts.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {

LagMatrices lagMatrices(const FittedVar& fit) {
  const std::size_t k = seriesCount(fit);
  LagMatrices result;
  for (std::size_t l = 0; l < fit.lag; ++l) {
    result.push_back(blockOf(fit.coefficients, 0, firstLagColumn(fit) + l * k, k, k));
  }
  return result;
}

Matrix joined(std::span<const Matrix> lags) {
  if (lags.empty()) return {};
  const std::size_t k = lags.front().rows;
  Matrix result(k, k * lags.size());
  for (std::size_t l = 0; l < lags.size(); ++l) {
    for (std::size_t i = 0; i < k; ++i) std::ranges::copy(lags[l].row(i), result.row(i).subspan(l * k, k).begin());
  }
  return result;
}

LagMatrices separated(const Matrix& joinedLags) {
  const std::size_t k = joinedLags.rows;
  LagMatrices result;
  for (std::size_t column = 0; column < joinedLags.columns; column += k) {
    result.push_back(blockOf(joinedLags, 0, column, k, k));
  }
  return result;
}

std::vector<double> oldestFirst(const Matrix& joinedLags) {
  const std::size_t k = joinedLags.rows;
  std::vector<double> result(joinedLags.values.size());
  for (std::size_t i = 0; i < k; ++i) {
    for (std::size_t c = 0; c < joinedLags.columns; ++c) {
      result[i * joinedLags.columns + joinedLags.columns - k - c / k * k + c % k] = joinedLags(i, c);
    }
  }
  return result;
}

Matrix companionMatrix(std::span<const Matrix> lags) {
  const Matrix top = joined(lags);
  Matrix companion(top.columns, top.columns);
  std::ranges::copy(top.values, companion.values.begin());
  for (std::size_t i = top.rows; i < companion.rows; ++i) companion(i, i - top.rows) = 1.0;
  return companion;
}

std::vector<Matrix> movingAverage(std::span<const Matrix> lags, std::size_t seriesCount, std::size_t count) {
  std::vector<Matrix> result;
  for (std::size_t i = 0; i < count; ++i) {
    Matrix phi = i == 0 ? identityMatrix(seriesCount) : Matrix(seriesCount, seriesCount);
    for (std::size_t j = 1; j <= std::min(i, lags.size()); ++j) {
      addScaled(1.0, multiply(result[i - j], lags[j - 1]), phi);
    }
    result.push_back(std::move(phi));
  }
  return result;
}

}  // namespace engine
