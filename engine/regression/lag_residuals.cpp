#include "engine/regression/lag_residuals.h"

#include <algorithm>

#include "engine/arithmetic/tile_products.h"

namespace engine {
namespace {

constexpr std::size_t kBlockRows = 96;  // whole tiles; one block of the windows stays in the first cache levels

// The rows first .. first + count - 1 of all series, one line a series: endogenous with their lags before them.
class WindowBlock {
 public:
  WindowBlock(const LagData& data, std::size_t lag)
      : data_(data),
        lag_(lag),
        endogenous_(data.seriesCount(), kBlockRows + lag),
        others_(data.exogenousCount() + 1, kBlockRows) {
    std::fill_n(others_.high(0), kBlockRows, 1.0);
    for (std::size_t i = 0; i <= data.exogenousCount(); ++i) regressors_.addRow(others_, i);
    for (std::size_t l = 1; l <= lag; ++l) {
      for (std::size_t i = 0; i < data.seriesCount(); ++i) regressors_.addRow(endogenous_, i, lag - l);
    }
  }

  void fill(std::size_t firstTime, std::size_t count) {
    for (std::size_t i = 0; i < data_.seriesCount(); ++i) {
      const double* source = data_.endogenous(i).data() + firstTime - lag_;
      subtract(source, data_.endogenousCenter(i), count + lag_, endogenous_.high(i));
    }
    for (std::size_t i = 0; i < data_.exogenousCount(); ++i) {
      subtract(data_.exogenous(i).data() + firstTime, data_.exogenousCenter(i), count, others_.high(i + 1));
    }
  }

  const RowTable& regressors() const { return regressors_; }
  const double* targets(std::size_t i) const { return endogenous_.high(i) + lag_; }

 private:
  static void subtract(const double* source, double center, std::size_t count, double* target) {
    for (std::size_t t = 0; t < count; ++t) target[t] = source[t] - center;
  }

  const LagData& data_;
  std::size_t lag_;
  Planes<double> endogenous_;
  Planes<double> others_;  // the constant 1, then the exogenous series
  RowTable regressors_;
};

// Adds a block's products; a column of ones beside the residuals makes their sums.
class MomentSums {
 public:
  explicit MomentSums(std::size_t count) : block_(kBlockRows + 1, count + 1), sums_(count + 1, count + 1) {
    for (std::size_t r = 0; r < kBlockRows; ++r) block_.set(r, count, 1.0);
    for (std::size_t r = 0; r < kBlockRows; ++r) rows_.addRow(block_, r);
  }

  void setSeries(std::size_t i, const double* residuals, std::size_t count) {
    double* target = block_.high(0) + i;
    for (std::size_t r = 0; r < count; ++r) target[r * block_.stride()] = residuals[r];
  }

  void addBlock(std::size_t count) {
    const std::size_t columns = sums_.rows();
    for (std::size_t i = 0; i < columns; i += kTileRows) {
      addTileProducts(
          {.steps = count, .factor = i, .factorCount = std::min(kTileRows, columns - i), .first = i, .last = columns},
          block_, rows_, sums_, i, i);
    }
  }

  ResidualMoments finish(std::size_t count) const {
    const std::size_t equations = sums_.rows() - 1;
    ResidualMoments moments{Matrix(equations, equations), std::vector<double>(equations), count};
    for (std::size_t i = 0; i < equations; ++i) {
      for (std::size_t j = i; j < equations; ++j) moments.products(i, j) = moments.products(j, i) = sums_.at(i, j);
      moments.sums[i] = sums_.at(i, equations);
    }
    return moments;
  }

 private:
  Planes<double> block_;
  Planes<double> sums_;
  RowTable rows_;
};

}  // namespace

LagResiduals lagResiduals(const LagData& data, std::size_t lag, const Planes<double>& coefficients) {
  const std::size_t equations = data.seriesCount();
  LagResiduals result{std::vector<std::vector<double>>(equations), {}};
  for (std::vector<double>& series : result.residuals) series.reserve(data.rowCount());
  WindowBlock windows(data, lag);
  MomentSums moments(equations);
  Planes<double> values(equations, kBlockRows);
  for (std::size_t first = data.maxLag(); first < data.length(); first += kBlockRows) {
    const std::size_t count = std::min(kBlockRows, data.length() - first);
    windows.fill(first, count);
    values.setZero();
    addTileProducts({.steps = data.regressorCount(lag), .factorCount = equations, .last = count}, coefficients,
                    windows.regressors(), values, 0, 0);
    for (std::size_t i = 0; i < equations; ++i) {
      double* residuals = values.high(i);
      const double* targets = windows.targets(i);
      for (std::size_t r = 0; r < count; ++r) residuals[r] = targets[r] - residuals[r];
      result.residuals[i].insert(result.residuals[i].end(), residuals, residuals + count);
      moments.setSeries(i, residuals, count);
    }
    moments.addBlock(count);
  }
  result.moments = moments.finish(data.rowCount());
  return result;
}

}  // namespace engine
