#include <algorithm>

#include "engine/dynamics/band_table.h"

namespace engine {
namespace {

// Streams of the future shocks, apart from those that drew the samples.
constexpr std::uint64_t kFutureStreams = std::uint64_t{1} << 63;

// R^-T d for every future row d of the terms: the row in the coordinates of Q.
Matrix inBasis(const Matrix& known, const Matrix& triangle) {
  Matrix result = known;
  for (std::size_t h = 0; h < result.rows; ++h) {
    for (std::size_t d = 0; d < result.columns; ++d) {
      for (std::size_t j = 0; j < d; ++j) result(h, d) -= triangle(j, d) * result(h, j);
      result(h, d) /= triangle(d, d);
    }
  }
  return result;
}

class FuturePaths {
 public:
  FuturePaths(const BootstrapDraws& draws, std::span<const std::vector<double>> series, const Matrix& known)
      : draws_(draws), known_(inBasis(known, draws.plan().triangle)) {
    const ResamplingPlan& plan = draws.plan();
    for (std::size_t l = plan.lag; l > 0; --l) {
      for (std::size_t i = 0; i < plan.series; ++i) {
        past_.push_back(series[i][series[i].size() - l] - plan.centre[i]);
      }
    }
  }

  // One future of every series, series by series.
  void fill(std::size_t replication, std::span<double> cells) const {
    const ResamplingPlan& plan = draws_.plan();
    const DrawnModel model = draws_.model(replication);
    RandomStream random(draws_.options().seed, kFutureStreams + replication);
    const std::size_t k = plan.series;
    std::vector<double> path = past_;
    path.resize(past_.size() + known_.rows * k);
    for (std::size_t h = 0; h < known_.rows; ++h) {
      const double* const window = path.data() + h * k;
      const double* const shock = plan.shocks.data() + random.below(plan.rows) * k;
      for (std::size_t i = 0; i < k; ++i) {
        double value = shock[i];
        for (std::size_t d = 0; d < plan.terms; ++d) value += known_(h, d) * model.terms[d * k + i];
        for (std::size_t c = 0; c < past_.size(); ++c) value += model.lags[i * past_.size() + c] * window[c];
        path[past_.size() + h * k + i] = value;
        cells[i * known_.rows + h] = value + plan.centre[i];
      }
    }
  }

 private:
  const BootstrapDraws& draws_;
  Matrix known_;
  std::vector<double> past_;
};

}  // namespace

std::optional<std::vector<Band>> forecastBands(const BootstrapDraws& draws, std::span<const std::vector<double>> series,
                                               const Matrix& known, const BandOptions& options,
                                               const PathChange& change) {
  const FuturePaths paths(draws, series, known);
  const auto table =
      limitTable(draws.count(), series.size(), known.rows, options, {}, [&](std::size_t b, std::span<double> cells) {
        paths.fill(b, cells);
        for (std::size_t i = 0; change && i < series.size(); ++i) {
          change(i, cells.subspan(i * known.rows, known.rows));
        }
      });
  if (!table) return std::nullopt;
  std::vector<Band> bands;
  for (std::size_t level = 0; level < options.levels.size(); ++level) {
    const std::vector<Matrix> empty(known.rows, Matrix(series.size(), 1));
    Band& band = bands.emplace_back(Band{options.levels[level], empty, empty});
    for (std::size_t cell = 0; cell < series.size() * known.rows; ++cell) {
      band.lower[cell % known.rows](cell / known.rows, 0) = (*table)[level][cell].lower;
      band.upper[cell % known.rows](cell / known.rows, 0) = (*table)[level][cell].upper;
    }
  }
  return bands;
}

}  // namespace engine
