#include "engine/regression/lag_residuals.h"

#include <algorithm>
#include <cmath>

#include "engine/arithmetic/tile_products.h"

namespace engine {
namespace {

constexpr std::size_t kBlockRows = 96;  // whole tiles; one block of the windows stays in the first cache levels

// The rows first .. first + count - 1 of all series, one line a series: endogenous with their lags before them.
template <class Real>
class WindowBlock {
 public:
  WindowBlock(const LagData& data, std::size_t lag)
      : data_(data),
        lag_(lag),
        endogenous_(data.seriesCount(), kBlockRows + lag),
        fixed_(data.fixedCount(), kBlockRows) {
    if (data.hasConstant()) std::fill_n(fixed_.high(0), kBlockRows, 1.0);
    for (std::size_t i = 0; i < data.fixedCount(); ++i) regressors_.addRow(fixed_, i);
    for (std::size_t l = 1; l <= lag; ++l) {
      for (std::size_t i = 0; i < data.seriesCount(); ++i) regressors_.addRow(endogenous_, i, lag - l);
    }
  }

  void fill(std::size_t firstTime, std::size_t count) {
    for (std::size_t i = 0; i < data_.seriesCount(); ++i) {
      data_.endogenous(i).copy(firstTime - lag_, count + lag_, endogenous_, i);
    }
    const std::size_t constants = data_.fixedCount() - data_.exogenousCount();
    for (std::size_t i = 0; i < data_.exogenousCount(); ++i) {
      data_.exogenous(i).copy(firstTime, count, fixed_, constants + i);
    }
  }

  const RowTable& regressors() const { return regressors_; }
  Real target(std::size_t i, std::size_t r) const { return endogenous_.at(i, lag_ + r); }

 private:
  const LagData& data_;
  std::size_t lag_;
  Planes<Real> endogenous_;
  Planes<Real> fixed_;  // the constant 1, then the exogenous series
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

template <class Real>
LagResiduals lagResiduals(const LagData& data, std::size_t lag, const Planes<Real>& coefficients) {
  const std::size_t equations = data.seriesCount();
  LagResiduals result{std::vector<std::vector<double>>(equations), {}};
  for (std::vector<double>& series : result.residuals) series.reserve(data.rowCount());
  WindowBlock<Real> windows(data, lag);
  MomentSums moments(equations);
  Planes<Real> values(equations, kBlockRows);
  double residuals[kBlockRows];
  for (std::size_t first = data.firstRow(); first < data.length(); first += kBlockRows) {
    const std::size_t count = std::min(kBlockRows, data.length() - first);
    windows.fill(first, count);
    values.setZero();
    addTileProducts({.steps = data.regressorCount(lag), .factorCount = equations, .last = count}, coefficients,
                    windows.regressors(), values, 0, 0);
    for (std::size_t i = 0; i < equations; ++i) {
      const double unit = std::ldexp(1.0, data.endogenous(i).placement().exponent);
      for (std::size_t r = 0; r < count; ++r) residuals[r] = rounded(windows.target(i, r) - values.at(i, r)) * unit;
      result.residuals[i].insert(result.residuals[i].end(), residuals, residuals + count);
      moments.setSeries(i, residuals, count);
    }
    moments.addBlock(count);
  }
  result.moments = moments.finish(data.rowCount());
  if (!data.hasConstant()) std::ranges::fill(result.moments.sums, 0.0);
  return result;
}

template LagResiduals lagResiduals(const LagData&, std::size_t, const Planes<double>&);
template LagResiduals lagResiduals(const LagData&, std::size_t, const Planes<DoubleDouble>&);

}  // namespace engine
