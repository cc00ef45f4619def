#include "engine/dynamics/responses.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {

Responses responsesTo(std::span<const Matrix> phi, const Impacts& impacts) {
  Responses responses;
  for (std::size_t h = 0; h < phi.size(); ++h) {
    Matrix sum(impacts.front().rows, impacts.front().columns);
    for (std::size_t l = 0; l < std::min(h + 1, impacts.size()); ++l) {
      addScaled(1.0, multiply(phi[h - l], impacts[l]), sum);
    }
    responses.push_back(std::move(sum));
  }
  return responses;
}

std::vector<std::size_t> completeOrder(std::span<const std::size_t> order, std::size_t series) {
  std::vector<std::size_t> complete(order.begin(), order.end());
  if (!complete.empty()) return complete;
  complete.resize(series);
  std::iota(complete.begin(), complete.end(), std::size_t{0});
  return complete;
}

std::optional<Matrix> orderedCholesky(const Matrix& covariance, std::span<const std::size_t> given) {
  const std::vector<std::size_t> order = completeOrder(given, covariance.rows);
  const auto factor = choleskyFactor(principalPart(covariance, order));
  if (!factor) return std::nullopt;
  Matrix result(covariance.rows, covariance.rows);
  for (std::size_t i = 0; i < order.size(); ++i) {
    for (std::size_t j = 0; j <= i; ++j) result(order[i], order[j]) = (*factor)(i, j);
  }
  return result;
}

Matrix generalizedImpact(const Matrix& covariance) {
  Matrix impact = covariance;
  for (std::size_t i = 0; i < impact.rows; ++i) {
    for (std::size_t j = 0; j < impact.columns; ++j) impact(i, j) /= std::sqrt(covariance(j, j));
  }
  return impact;
}

void scaleToUnit(Responses& responses) {
  for (std::size_t j = 0; j < responses.front().columns; ++j) {
    const double size = responses.front()(j, j);
    for (Matrix& one : responses) {
      for (std::size_t i = 0; i < one.rows; ++i) one(i, j) /= size;
    }
  }
}

void cumulate(Responses& responses, const std::vector<bool>& series) {
  for (std::size_t h = 1; h < responses.size(); ++h) {
    for (std::size_t i = 0; i < series.size(); ++i) {
      if (!series[i]) continue;
      for (std::size_t j = 0; j < responses[h].columns; ++j) responses[h](i, j) += responses[h - 1](i, j);
    }
  }
}

}  // namespace engine
