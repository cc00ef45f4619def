#include "engine/dynamics/impulse_responses.h"

#include <algorithm>
#include <cmath>

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

// Columns of K x m coefficients as impacts, one matrix a lag.
Impacts exogenousImpacts(const Matrix& coefficients, const ImpulseOptions& options) {
  Impacts impacts;
  for (std::size_t lag = 0; lag < options.exogenousColumns.front().size(); ++lag) {
    Matrix& impact = impacts.emplace_back(coefficients.rows, options.exogenousColumns.size());
    for (std::size_t j = 0; j < impact.columns; ++j) {
      for (std::size_t i = 0; i < impact.rows; ++i) impact(i, j) = coefficients(i, options.exogenousColumns[j][lag]);
    }
  }
  return impacts;
}

std::optional<Impacts> impactsOf(const FittedVar& fit, const ImpulseOptions& options) {
  const std::size_t k = seriesCount(fit);
  switch (options.type) {
    case ShockType::reduced:
      return Impacts{identityMatrix(k)};
    case ShockType::exogenous:
      return exogenousImpacts(fit.coefficients, options);
    case ShockType::generalized:
      return Impacts{generalizedImpact(residualCovariance(fit))};
    case ShockType::orthogonal:
      break;
  }
  auto root = orderedCholesky(residualCovariance(fit), options.order);
  if (!root) return std::nullopt;
  return Impacts{std::move(*root)};
}

// Exogenous series have a unit of their own.
bool isScaled(const ImpulseOptions& options) {
  return options.unit && options.type != ShockType::exogenous;
}

// The gradient of the responses in one direction, collected as sums of squares over all directions.
class GradientSum {
 public:
  GradientSum(const FittedVar& fit, const ImpulseOptions& options, std::size_t horizon, Impacts impacts)
      : fit_(fit),
        options_(options),
        lags_(lagMatrices(fit)),
        phi_(movingAverage(lags_, seriesCount(fit), horizon + 1)),
        impacts_(std::move(impacts)),
        responses_(responsesTo(phi_, impacts_)),
        squares_(phi_.size(), Matrix(seriesCount(fit), impacts_.front().columns)) {}

  // The coefficients (K x m) move by column * row'.
  void addCoefficientDirection(std::span<const double> column, std::span<const double> row) {
    Responses change = shockedBy(column, row);
    if (options_.type == ShockType::exogenous) {
      Matrix direction(column.size(), row.size());
      for (std::size_t i = 0; i < column.size(); ++i) {
        for (std::size_t j = 0; j < row.size(); ++j) direction(i, j) = column[i] * row[j];
      }
      const Responses direct = responsesTo(phi_, exogenousImpacts(direction, options_));
      for (std::size_t h = 0; h < change.size(); ++h) addScaled(1.0, direct[h], change[h]);
    }
    add(std::move(change));
  }

  // The impact matrix moves.
  void addImpactDirection(const Matrix& direction) { add(responsesTo(phi_, {direction})); }

  Responses roots() const {
    Responses result = squares_;
    for (Matrix& one : result) {
      for (double& value : one.values) value = std::sqrt(value);
    }
    return result;
  }

 private:
  // A change dA = column * row' of the lag matrices acts as a shock of row' (R(h-1), .., R(h-p)) at every h.
  Responses shockedBy(std::span<const double> column, std::span<const double> row) const {
    const std::size_t k = column.size();
    Responses change;
    for (std::size_t h = 0; h < responses_.size(); ++h) {
      Matrix next(k, impacts_.front().columns);
      for (std::size_t l = 1; l <= std::min(h, lags_.size()); ++l) {
        const std::span<const double> part = row.subspan(firstLagColumn(fit_) + (l - 1) * k, k);
        addScaled(1.0, multiply(lags_[l - 1], change[h - l]), next);
        addOuter(column, productWith(part, responses_[h - l]), next);
      }
      change.push_back(std::move(next));
    }
    return change;
  }

  static std::vector<double> productWith(std::span<const double> row, const Matrix& a) {
    std::vector<double> result(a.columns);
    for (std::size_t i = 0; i < a.rows; ++i) {
      for (std::size_t j = 0; j < a.columns; ++j) result[j] += row[i] * a(i, j);
    }
    return result;
  }

  static void addOuter(std::span<const double> column, std::span<const double> row, Matrix& sum) {
    for (std::size_t i = 0; i < column.size(); ++i) {
      for (std::size_t j = 0; j < row.size(); ++j) sum(i, j) += column[i] * row[j];
    }
  }

  // The quotient rule where responses are divided by the one of the shock's own series at horizon 0.
  void scaleChange(Responses& change) const {
    const Matrix first = change.front();
    for (std::size_t j = 0; j < first.columns; ++j) {
      const double size = responses_.front()(j, j);
      for (std::size_t h = 0; h < change.size(); ++h) {
        for (std::size_t i = 0; i < first.rows; ++i) {
          change[h](i, j) = (change[h](i, j) - responses_[h](i, j) * first(j, j) / size) / size;
        }
      }
    }
  }

  void add(Responses change) {
    if (isScaled(options_)) scaleChange(change);
    if (!options_.cumulative.empty()) cumulate(change, options_.cumulative);
    for (std::size_t h = 0; h < change.size(); ++h) {
      for (std::size_t i = 0; i < change[h].values.size(); ++i) {
        squares_[h].values[i] += change[h].values[i] * change[h].values[i];
      }
    }
  }

  const FittedVar& fit_;
  const ImpulseOptions& options_;
  LagMatrices lags_;
  std::vector<Matrix> phi_;
  Impacts impacts_;
  Responses responses_;
  Responses squares_;
};

// Directions of S whose outer products sum to its covariance: P (E_ab + E_ba) P' / sqrt(n) for a < b, and sqrt(2) P
// E_aa P' / sqrt(n); the Cholesky factor then moves by P E_ba / sqrt(n), and P E_aa / sqrt(2 n).
void addOrthogonalDirections(const Matrix& root, std::span<const std::size_t> order, double n, GradientSum& sum) {
  for (std::size_t a = 0; a < order.size(); ++a) {
    for (std::size_t b = a; b < order.size(); ++b) {
      Matrix direction(root.rows, root.rows);
      const double size = a == b ? 1.0 / std::sqrt(2.0 * n) : 1.0 / std::sqrt(n);
      for (std::size_t i = 0; i < root.rows; ++i) direction(i, order[a]) = root(i, order[b]) * size;
      sum.addImpactDirection(direction);
    }
  }
}

void addGeneralizedDirections(const Matrix& covariance, const Matrix& root, double n, GradientSum& sum) {
  for (std::size_t a = 0; a < root.rows; ++a) {
    for (std::size_t b = a; b < root.rows; ++b) {
      const double size = (a == b ? std::sqrt(0.5) : 1.0) / std::sqrt(n);
      Matrix direction(root.rows, root.rows);
      for (std::size_t j = 0; j < root.rows; ++j) {
        const double deviation = std::sqrt(covariance(j, j));
        const double own = 2.0 * root(j, a) * root(j, b) * size;  // the change of s_jj
        for (std::size_t i = 0; i < root.rows; ++i) {
          const double moved = (root(i, a) * root(j, b) + root(i, b) * root(j, a)) * size;
          direction(i, j) = (moved - 0.5 * covariance(i, j) * own / covariance(j, j)) / deviation;
        }
      }
      sum.addImpactDirection(direction);
    }
  }
}

}  // namespace

std::optional<Responses> impulseResponses(const FittedVar& fit, const ImpulseOptions& options, std::size_t horizon) {
  const auto impacts = impactsOf(fit, options);
  if (!impacts) return std::nullopt;
  Responses responses = responsesTo(movingAverage(lagMatrices(fit), seriesCount(fit), horizon + 1), *impacts);
  if (isScaled(options)) scaleToUnit(responses);
  if (!options.cumulative.empty()) cumulate(responses, options.cumulative);
  return responses;
}

std::optional<Responses> responseErrors(const FittedVar& fit, const ImpulseOptions& options, std::size_t horizon) {
  const std::vector<std::size_t> order = completeOrder(options.order, seriesCount(fit));
  const Matrix covariance = residualCovariance(fit);
  const auto root = orderedCholesky(covariance, order);
  const auto inverseRoot = choleskyFactor(fit.inverse);
  auto impacts = impactsOf(fit, options);
  if (!root || !inverseRoot || !impacts) return std::nullopt;
  GradientSum sum(fit, options, horizon, std::move(*impacts));
  for (std::size_t u = 0; u < inverseRoot->columns; ++u) {
    for (std::size_t v = 0; v < root->columns; ++v) {
      sum.addCoefficientDirection(columnOf(*root, v), columnOf(*inverseRoot, u));
    }
  }
  const auto n = static_cast<double>(rowCount(fit));
  if (options.type == ShockType::orthogonal) addOrthogonalDirections(*root, order, n, sum);
  if (options.type == ShockType::generalized) addGeneralizedDirections(covariance, *root, n, sum);
  return sum.roots();
}

}  // namespace engine
