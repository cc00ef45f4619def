#include <algorithm>
#include <cmath>
#include <numeric>

#include "engine/dynamics/band_table.h"
#include "engine/dynamics/fit_parts.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

// Runs the lags of one draw on the rows after the p x K zeros in `path`, which hold what happens there at once.
void propagate(const ResamplingPlan& plan, std::span<const double> lags, std::span<double> path) {
  const std::size_t k = plan.series;
  const std::size_t past = k * plan.lag;
  for (std::size_t first = past; first < path.size(); first += k) {
    const double* const window = path.data() + first - past;
    for (std::size_t i = 0; i < k; ++i) {
      const double* const row = lags.data() + i * past;
      double sum = 0.0;
      for (std::size_t c = 0; c < past; ++c) sum += row[c] * window[c];
      path[first + i] += sum;
    }
  }
}

Matrix rootOf(const BootstrapDraws& draws, std::size_t replication) {
  Matrix root(draws.plan().series, draws.plan().series);
  std::ranges::copy(draws.model(replication).root, root.values.begin());
  return root;
}

// Where the terms' coefficients of an exogenous series stand: the position among the columns that are no lags.
std::size_t termIndex(const ResamplingPlan& plan, std::size_t column) {
  return column < plan.series * plan.lag ? column : column - plan.series * plan.lag;
}

class ShockPaths {
 public:
  ShockPaths(const BootstrapDraws& draws, const ImpulseOptions& impulse, std::size_t horizon)
      : draws_(draws), impulse_(impulse), points_(horizon + 1) {}

  std::size_t shocks() const {
    return impulse_.type == ShockType::exogenous ? impulse_.exogenousColumns.size() : draws_.plan().series;
  }

  // The responses of every series to the shock, series by series.
  void fill(std::size_t replication, std::size_t shock, std::span<double> cells) const {
    const std::size_t k = draws_.plan().series;
    std::vector<double> path((draws_.plan().lag + points_) * k);
    const std::span<double> rows = std::span(path).subspan(draws_.plan().lag * k);
    if (impulse_.type == ShockType::exogenous) {
      fillExogenous(replication, shock, rows);
    } else {
      fillImpact(replication, shock, rows);
    }
    propagate(draws_.plan(), draws_.model(replication).lags, path);
    const double size = impulse_.unit && impulse_.type != ShockType::exogenous ? rows[shock] : 1.0;
    for (std::size_t i = 0; i < k; ++i) {
      const bool cumulative = !impulse_.cumulative.empty() && impulse_.cumulative[i];
      double sum = 0.0;
      for (std::size_t h = 0; h < points_; ++h) {
        sum = (cumulative ? sum : 0.0) + rows[h * k + i];
        cells[i * points_ + h] = sum / size;
      }
    }
  }

 private:
  void fillImpact(std::size_t replication, std::size_t shock, std::span<double> rows) const {
    const std::size_t k = draws_.plan().series;
    const std::span<const double> root = draws_.model(replication).root;
    if (impulse_.type == ShockType::reduced) {
      rows[shock] = 1.0;
    } else if (impulse_.type == ShockType::orthogonal && impulse_.order.empty()) {
      for (std::size_t i = shock; i < k; ++i) rows[i] = root[i * k + shock];
    } else {
      const Matrix factor = rootOf(draws_, replication);
      const Matrix covariance = multiplyTransposed(factor, factor);
      // The estimates of every draw have a Cholesky factor, so they have one in any order.
      const Matrix impact = impulse_.type == ShockType::generalized
                                ? generalizedImpact(covariance)
                                : orderedCholesky(covariance, impulse_.order).value_or(factor);
      for (std::size_t i = 0; i < k; ++i) rows[i] = impact(i, shock);
    }
  }

  void fillExogenous(std::size_t replication, std::size_t shock, std::span<double> rows) const {
    const ResamplingPlan& plan = draws_.plan();
    const Matrix coefficients = draws_.termCoefficients(replication);
    const std::vector<std::size_t>& columns = impulse_.exogenousColumns[shock];
    for (std::size_t lag = 0; lag < std::min(columns.size(), points_); ++lag) {
      for (std::size_t i = 0; i < plan.series; ++i) {
        rows[lag * plan.series + i] = coefficients(termIndex(plan, columns[lag]), i);
      }
    }
  }

  const BootstrapDraws& draws_;
  const ImpulseOptions& impulse_;
  std::size_t points_;
};

}  // namespace

std::optional<std::vector<Band>> responseBands(const BootstrapDraws& draws, const ImpulseOptions& impulse,
                                               std::size_t horizon, const BandOptions& options) {
  const std::size_t k = draws.plan().series;
  const ShockPaths paths(draws, impulse, horizon);
  const std::vector<Matrix> empty(horizon + 1, Matrix(k, paths.shocks()));
  std::vector<Band> bands;
  for (const double level : options.levels) bands.push_back({level, empty, empty});
  for (std::size_t shock = 0; shock < paths.shocks(); ++shock) {
    const auto table = limitTable(draws.count(), k, horizon + 1, options, {shock, paths.shocks()},
                                  [&](std::size_t b, std::span<double> cells) { paths.fill(b, shock, cells); });
    if (!table) return std::nullopt;
    for (std::size_t level = 0; level < bands.size(); ++level) {
      for (std::size_t cell = 0; cell < k * (horizon + 1); ++cell) {
        bands[level].lower[cell % (horizon + 1)](cell / (horizon + 1), shock) = (*table)[level][cell].lower;
        bands[level].upper[cell % (horizon + 1)](cell / (horizon + 1), shock) = (*table)[level][cell].upper;
      }
    }
  }
  return bands;
}

}  // namespace engine
