#include <algorithm>
#include <cmath>

#include "engine/dynamics/band_table.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

// The impact matrices of one draw: columns of the variances, and of the shocks whose shares are asked for.
struct Impact {
  Matrix orthogonal;
  Matrix shocks;
};

Impact impactOf(const BootstrapDraws& draws, std::size_t replication, ShareType type,
                std::span<const std::size_t> order) {
  const std::size_t k = draws.plan().series;
  Matrix root(k, k);
  std::ranges::copy(draws.model(replication).root, root.values.begin());
  if (type == ShareType::orthogonal && order.empty()) return {root, root};
  const Matrix covariance = multiplyTransposed(root, root);
  if (type != ShareType::orthogonal) return {root, generalizedImpact(covariance)};
  const Matrix ordered = orderedCholesky(covariance, order).value_or(root);
  return {ordered, ordered};
}

class ShareRows {
 public:
  ShareRows(const BootstrapDraws& draws, ShareType type, std::span<const std::size_t> order, std::size_t horizon)
      : draws_(draws), type_(type), order_(order), horizon_(horizon) {}

  // Shares of all shocks in the variance of one series, shock by shock.
  void fill(std::size_t replication, std::size_t series, std::span<double> cells) const {
    const std::size_t k = draws_.plan().series;
    const std::vector<double> rows = responseRows(replication, series);
    const Impact impact = impactOf(draws_, replication, type_, order_);
    std::vector<double> sums(k);
    double variance = 0.0;
    for (std::size_t h = 0; h < horizon_; ++h) {
      for (std::size_t j = 0; j < k; ++j) {
        sums[j] += square(responseOf(rows.data() + h * k, impact.shocks, j));
        variance += square(responseOf(rows.data() + h * k, impact.orthogonal, j));
      }
      double total = variance;
      if (type_ == ShareType::normalised) {
        total = 0.0;
        for (const double sum : sums) total += sum;
      }
      for (std::size_t j = 0; j < k; ++j) cells[j * horizon_ + h] = sums[j] / total;
    }
  }

 private:
  static double square(double x) { return x * x; }

  // Row `series` of Phi(0), Phi(1), ..: Phi(h) is the sum over l of Phi(h-l) A_l.
  std::vector<double> responseRows(std::size_t replication, std::size_t series) const {
    const ResamplingPlan& plan = draws_.plan();
    const std::size_t k = plan.series;
    const std::span<const double> lags = draws_.model(replication).lags;
    std::vector<double> rows(horizon_ * k);
    rows[series] = 1.0;
    for (std::size_t h = 1; h < horizon_; ++h) {
      for (std::size_t l = 1; l <= std::min(h, plan.lag); ++l) {
        for (std::size_t i = 0; i < k; ++i) {
          const double factor = rows[(h - l) * k + i];
          const double* const lag = lags.data() + i * k * plan.lag + (plan.lag - l) * k;
          for (std::size_t j = 0; j < k; ++j) rows[h * k + j] += factor * lag[j];
        }
      }
    }
    return rows;
  }

  static double responseOf(const double* row, const Matrix& impact, std::size_t shock) {
    double sum = 0.0;
    for (std::size_t i = 0; i < impact.rows; ++i) sum += row[i] * impact(i, shock);
    return sum;
  }

  const BootstrapDraws& draws_;
  ShareType type_;
  std::span<const std::size_t> order_;
  std::size_t horizon_;
};

}  // namespace

std::optional<std::vector<Band>> shareBands(const BootstrapDraws& draws, ShareType type,
                                            std::span<const std::size_t> order, std::size_t horizon,
                                            const BandOptions& options) {
  const std::size_t k = draws.plan().series;
  const ShareRows rows(draws, type, order, horizon);
  const std::vector<Matrix> empty(horizon, Matrix(k, k));
  std::vector<Band> bands;
  for (const double level : options.levels) bands.push_back({level, empty, empty});
  for (std::size_t series = 0; series < k; ++series) {
    const auto table = limitTable(draws.count(), k, horizon, options, {series, k},
                                  [&](std::size_t b, std::span<double> cells) { rows.fill(b, series, cells); });
    if (!table) return std::nullopt;
    for (std::size_t level = 0; level < bands.size(); ++level) {
      for (std::size_t cell = 0; cell < k * horizon; ++cell) {
        bands[level].lower[cell % horizon](series, cell / horizon) = (*table)[level][cell].lower;
        bands[level].upper[cell % horizon](series, cell / horizon) = (*table)[level][cell].upper;
      }
    }
  }
  return bands;
}

}  // namespace engine
