#include "engine/dynamics/conditional_forecast.h"

#include <algorithm>
#include <cmath>

#include "engine/arithmetic/moments.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

// Om R': covariances of every value, h major, with the held ones: (H K) x r.
Matrix covariancesWithHeld(const ForecastErrors& errors, const Matrix& shape, std::span<const HeldValue> held) {
  Matrix result(shape.rows * shape.columns, held.size());
  for (std::size_t c = 0; c < held.size(); ++c) {
    for (std::size_t h = 1; h <= shape.rows; ++h) {
      const Matrix block = errors.covariance(h, held[c].horizon);
      for (std::size_t i = 0; i < shape.columns; ++i) {
        result((h - 1) * shape.columns + i, c) = block(i, held[c].series);
      }
    }
  }
  return result;
}

std::vector<std::size_t> cellsOf(std::span<const HeldValue> held, std::size_t columns) {
  std::vector<std::size_t> cells;
  for (const HeldValue& one : held) cells.push_back((one.horizon - 1) * columns + one.series);
  return cells;
}

// R Om R', the rows of the held values.
Matrix heldRows(const Matrix& covariances, std::span<const std::size_t> cells) {
  Matrix result(cells.size(), covariances.columns);
  for (std::size_t i = 0; i < cells.size(); ++i) std::ranges::copy(covariances.row(cells[i]), result.row(i).begin());
  return result;
}

// Om R' and the Cholesky factor of R Om R'.
struct HeldCovariance {
  Matrix covariances;
  Matrix factor;
};

std::optional<HeldCovariance> heldCovariance(const ForecastErrors& errors, const Matrix& shape,
                                             std::span<const HeldValue> held) {
  Matrix covariances = covariancesWithHeld(errors, shape, held);
  auto factor = choleskyFactor(heldRows(covariances, cellsOf(held, shape.columns)));
  if (!factor) return std::nullopt;
  return HeldCovariance{std::move(covariances), std::move(*factor)};
}

Matrix conditionalValues(const Matrix& unconditional, const HeldCovariance& gain, const Matrix& difference) {
  Matrix solved = difference;
  solveLower(gain.factor, solved);
  solveLowerTransposed(gain.factor, solved);
  const Matrix shift = multiply(gain.covariances, solved);
  Matrix values = unconditional;
  for (std::size_t i = 0; i < values.values.size(); ++i) values.values[i] += shift.values[i];
  return values;
}

// Om R' L'^-1 for the Cholesky factor L of R Om R'.
Matrix whitenedCovariances(const HeldCovariance& held) {
  Matrix whitened = transposed(held.covariances);
  solveLower(held.factor, whitened);
  return transposed(whitened);
}

Matrix conditionalErrors(const ForecastErrors& errors, const Matrix& whitened) {
  Matrix result = standardErrors(errors);
  for (std::size_t i = 0; i < result.values.size(); ++i) {
    double& error = result.values[i];
    error = std::sqrt(std::max(error * error - sumOfSquares(whitened.row(i)), 0.0));
  }
  return result;
}

}  // namespace

std::optional<ConditionalForecast> conditionalForecast(const Matrix& unconditional, const ForecastErrors& shocks,
                                                       const ForecastErrors& errors, std::span<const HeldValue> held) {
  const auto gain = heldCovariance(shocks, unconditional, held);
  const auto full = heldCovariance(errors, unconditional, held);
  if (!gain || !full) return std::nullopt;
  Matrix difference(held.size(), 1);
  for (std::size_t i = 0; i < held.size(); ++i) {
    difference(i, 0) = held[i].value - unconditional(held[i].horizon - 1, held[i].series);
  }
  ConditionalForecast result{conditionalValues(unconditional, *gain, difference), {}, whitenedCovariances(*full), {}};
  result.standardErrors = conditionalErrors(errors, result.explained);
  for (const HeldValue& one : held) {
    result.values(one.horizon - 1, one.series) = one.value;
    result.standardErrors(one.horizon - 1, one.series) = 0.0;
  }
  solveLower(full->factor, difference);
  if (!held.empty()) result.unusual = chiSquaredTest(sumOfSquares(difference), static_cast<double>(held.size()));
  return result;
}

}  // namespace engine
