#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/dynamics/slope_bias.h"
#include "engine/dynamics/stationary_covariance.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

constexpr double kNegligible = 1e-12;  // of the bias, from the powers of F left out

// Both parts of the regressors, and the sums over j as they grow.
class BiasSum {
 public:
  BiasSum(std::span<const Matrix> lags, const Matrix& covariance, Matrix gamma, const OrthonormalBasis& known,
          std::vector<std::vector<double>> driven)
      : lags_(lags),
        series_(covariance.rows),
        known_(known),
        driven_(std::move(driven)),
        lagged_(std::move(gamma)),
        powerRows_(series_, series_ * lags.size()),
        sum_(series_, series_ * lags.size()) {
    for (std::size_t i = 0; i < series_; ++i) powerRows_(i, i) = 1.0;
  }

  // False when the regressors' covariance is singular.
  bool run(std::size_t rows) {
    Matrix total = lagged_;
    addScaled(1.0 / static_cast<double>(rows), columnProducts(driven_, driven_), total);
    const auto factor = choleskyFactor(total);
    if (!factor) return false;
    weight_ = inverseFromCholesky(*factor);
    weightedDriven_ = combined(weight_);
    for (std::size_t k = 1; k < rows && sumOfSquares(powerRows_) > kNegligible * kNegligible; ++k) {
      advance(lagged_);
      addTerm(k, rows);
      advanceRows();
    }
    return true;
  }

  Matrix weighted() const { return multiply(sum_, weight_); }

 private:
  // X := F X.
  void advance(Matrix& x) const {
    Matrix top(series_, x.columns);
    for (std::size_t l = 0; l < lags_.size(); ++l) {
      addScaled(1.0, multiply(lags_[l], blockOf(x, l * series_, 0, series_, x.columns)), top);
    }
    std::shift_right(x.values.begin(), x.values.end(), static_cast<std::ptrdiff_t>(top.values.size()));
    std::ranges::copy(top.values, x.values.begin());
  }

  // The first K rows of F'^k: Phi(k)', Phi(k-1)', ...
  void advanceRows() {
    Matrix turned = transposed(powerRows_);
    advance(turned);
    powerRows_ = transposed(turned);
  }

  void addTerm(std::size_t k, std::size_t rows) {
    const Matrix weightedRows = multiply(powerRows_, weight_);
    addScaled(1.0, multiplyTransposed(weightedRows, lagged_), sum_);
    double trace = 0.0;
    for (std::size_t i = 0; i < weight_.values.size(); ++i) trace += weight_.values[i] * lagged_.values[i];
    for (std::size_t i = 0; i < known_.size(); ++i) {
      const std::span<const double> vector = known_[i];
      trace += dotProduct(vector.first(vector.size() - k), vector.subspan(k));
    }
    trace += addDriven(k, rows, weightedRows);
    addScaled(trace, powerRows_, sum_);
  }

  // R W times the driven part's autocovariance at k, and the trace of W times it.
  double addDriven(std::size_t k, std::size_t rows, const Matrix& weightedRows) {
    const double share = 1.0 / static_cast<double>(rows);
    const std::vector<std::vector<double>> early = combined(weightedRows);
    double trace = 0.0;
    for (std::size_t j = 0; j < driven_.size(); ++j) {
      const std::span<const double> late = std::span(driven_[j]).subspan(k);
      for (std::size_t i = 0; i < early.size(); ++i) {
        sum_(i, j) += share * dotProduct(std::span(early[i]).first(rows - k), late);
      }
      trace += share * dotProduct(std::span(weightedDriven_[j]).first(rows - k), late);
    }
    return trace;
  }

  // Combinations of the driven columns, one for each row of weights.
  std::vector<std::vector<double>> combined(const Matrix& weights) const {
    std::vector<std::vector<double>> result(weights.rows,
                                            std::vector<double>(driven_.empty() ? 0 : driven_.front().size()));
    for (std::size_t i = 0; i < weights.rows; ++i) {
      for (std::size_t j = 0; j < driven_.size(); ++j) {
        for (std::size_t r = 0; r < result[i].size(); ++r) result[i][r] += weights(i, j) * driven_[j][r];
      }
    }
    return result;
  }

  std::span<const Matrix> lags_;
  std::size_t series_;
  const OrthonormalBasis& known_;
  std::vector<std::vector<double>> driven_;
  std::vector<std::vector<double>> weightedDriven_;  // W times it
  Matrix lagged_;                                    // F^k Gamma
  Matrix powerRows_;
  Matrix sum_;
  Matrix weight_;
};

}  // namespace

std::optional<Matrix> slopeBias(std::span<const Matrix> lags, const Matrix& covariance, std::size_t rows,
                                std::span<const std::vector<double>> knownColumns,
                                std::span<const std::vector<double>> driven) {
  auto gamma = stationaryCovariance(lags, covariance);
  if (!gamma) return std::nullopt;
  OrthonormalBasis known;
  for (const std::vector<double>& column : knownColumns) known.append(column);
  std::vector<std::vector<double>> rest(driven.begin(), driven.end());
  for (std::vector<double>& column : rest) known.removeFrom(column);
  BiasSum sum(lags, covariance, std::move(*gamma), known, std::move(rest));
  if (!sum.run(rows)) return std::nullopt;
  Matrix bias = multiply(covariance, sum.weighted());
  for (double& value : bias.values) value /= -static_cast<double>(rows);
  return bias;
}

}  // namespace engine
