#include "engine/dynamics/forecast_errors.h"

#include <algorithm>
#include <cmath>

#include "engine/arithmetic/moments.h"

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

// w (1 x m) and P (K x K) as the K x (m K) matrix [w_1 P, w_2 P, ..].
Matrix kronecker(std::span<const double> w, const Matrix& p) {
  Matrix result(p.rows, w.size() * p.columns);
  for (std::size_t i = 0; i < p.rows; ++i) {
    for (std::size_t c = 0; c < w.size(); ++c) {
      for (std::size_t j = 0; j < p.columns; ++j) result(i, c * p.columns + j) = w[c] * p(i, j);
    }
  }
  return result;
}

// An error made at one horizon goes on through the lags: J(h) = w(h-1) x P + sum over l of A_l J(h-l).
std::vector<Matrix> estimationErrors(std::span<const Matrix> lags, const Matrix& weights, const Matrix& root) {
  std::vector<Matrix> result;
  for (std::size_t h = 0; h < weights.rows; ++h) {
    Matrix next = kronecker(weights.row(h), root);
    for (std::size_t l = 1; l <= std::min(h, lags.size()); ++l) {
      addScaled(1.0, multiply(lags[l - 1], result[h - l]), next);
    }
    result.push_back(std::move(next));
  }
  return result;
}

}  // namespace

Matrix ForecastErrors::covariance(std::size_t h, std::size_t g) const {
  if (h < g) return transposed(covariance(g, h));
  Matrix sum(shocks.front().rows, shocks.front().rows);
  for (std::size_t k = 0; k < g; ++k) addScaled(1.0, multiplyTransposed(shocks[h - g + k], shocks[k]), sum);
  if (!estimation.empty()) addScaled(1.0, multiplyTransposed(estimation[h - 1], estimation[g - 1]), sum);
  return sum;
}

std::optional<ForecastErrors> shockErrors(std::span<const Matrix> lags, const Matrix& covariance, std::size_t horizon) {
  const auto root = choleskyFactor(covariance);
  if (!root) return std::nullopt;
  ForecastErrors result;
  for (const Matrix& phi : movingAverage(lags, covariance.rows, horizon)) {
    result.shocks.push_back(multiply(phi, *root));
  }
  return result;
}

std::optional<ForecastErrors> forecastErrors(const CorrectedModel& model, const Matrix& regressors) {
  const LagMatrices lags = lagMatrices(model.fit);
  auto result = shockErrors(lags, model.covariance, regressors.rows);
  const auto factor = choleskyFactor(model.fit.inverse);
  if (!result || !factor) return std::nullopt;
  result->estimation = estimationErrors(lags, multiply(regressors, *factor), *choleskyFactor(model.covariance));
  return result;
}

Matrix standardErrors(const ForecastErrors& errors) {
  if (errors.shocks.empty()) return {};
  Matrix result(errors.shocks.size(), errors.shocks.front().rows);
  std::vector<double> variances(result.columns);
  for (std::size_t h = 0; h < result.rows; ++h) {
    for (std::size_t i = 0; i < result.columns; ++i) {
      variances[i] += sumOfSquares(errors.shocks[h].row(i));
      const double estimation = errors.estimation.empty() ? 0.0 : sumOfSquares(errors.estimation[h].row(i));
      result(h, i) = std::sqrt(variances[i] + estimation);
    }
  }
  return result;
}

}  // namespace engine
