#include "engine/regression/lag_cross_products.h"

#include <algorithm>
#include <utility>

#include "engine/arithmetic/tile_products.h"

namespace engine {
namespace {

constexpr std::size_t kBlockRows = kSummedRows;

// The products of the unlagged columns [series, exogenous, constant] with the series at lags 0..MAXLAG (`lagged`) and
// with [exogenous, constant] (`fixed`); `core` is what `lagged` holds of the first T - firstRow - MAXLAG rows.
template <class Real>
struct FirstRow {
  explicit FirstRow(const LagData& data)
      : lagged(data.seriesCount() + data.fixedCount(), (data.maxLag() + 1) * data.seriesCount()),
        fixed(data.fixedCount(), data.fixedCount()) {}
  Planes<Real> lagged;
  Planes<Real> core;
  Planes<Real> fixed;
};

// Rows first .. last - 1 of the columns [series, exogenous, constant] at those times.
template <class Real>
void packUnlagged(const LagData& data, std::size_t first, std::size_t last, Planes<Real>& rows) {
  const std::size_t count = data.seriesCount();
  for (std::size_t t = first; t < last; ++t) {
    for (std::size_t i = 0; i < count; ++i) rows.set(t - first, i, data.endogenous(i).at<Real>(t));
    for (std::size_t i = 0; i < data.exogenousCount(); ++i) {
      rows.set(t - first, count + i, data.exogenous(i).at<Real>(t));
    }
    if (data.hasConstant()) rows.set(t - first, count + data.exogenousCount(), Real(1.0));
  }
}

// One long row: the series at time last - 1, then at last - 2, .., down to first - MAXLAG. The values from time t on
// are the window of t: lag 0 of every series, lag 1, ..
template <class Real>
void packWindows(const LagData& data, std::size_t first, std::size_t last, Planes<Real>& line) {
  const std::size_t count = data.seriesCount();
  std::size_t place = 0;
  for (std::size_t t = last; t-- > first - data.maxLag(); place += count) {
    for (std::size_t i = 0; i < count; ++i) line.set(0, place + i, data.endogenous(i).at<Real>(t));
  }
}

template <class Real>
class FirstRowSum {
 public:
  explicit FirstRowSum(const LagData& data)
      : data_(data),
        sums_(data),
        unlagged_(kBlockRows + 1, data.seriesCount() + data.fixedCount()),  // tiles of `fixed` read past a row's end
        line_(1, (kBlockRows + data.maxLag()) * data.seriesCount() + kTileColumns) {
    for (std::size_t r = 0; r < kBlockRows; ++r) fixedRows_.addRow(unlagged_, r, data.seriesCount());
  }

  // Adds the rows first .. last - 1.
  void add(std::size_t first, std::size_t last) {
    for (; first < last; first += kBlockRows) addBlock(first, std::min(first + kBlockRows, last));
  }
  void keepCore() { sums_.core = sums_.lagged; }
  FirstRow<Real> take() { return std::move(sums_); }

 private:
  void addBlock(std::size_t first, std::size_t last) {
    const std::size_t count = data_.seriesCount();
    const std::size_t fixed = data_.fixedCount();
    packUnlagged(data_, first, last, unlagged_);
    packWindows(data_, first, last, line_);
    RowTable windows;
    for (std::size_t t = first; t < last; ++t) windows.addRow(line_, 0, (last - 1 - t) * count);
    addTileProducts({.steps = last - first, .factorCount = count + fixed, .last = (data_.maxLag() + 1) * count},
                    unlagged_, windows, sums_.lagged, 0, 0);
    addTileProducts({.steps = last - first, .factor = count, .factorCount = fixed, .last = fixed}, unlagged_,
                    fixedRows_, sums_.fixed, 0, 0);
  }

  const LagData& data_;
  FirstRow<Real> sums_;
  Planes<Real> unlagged_;
  Planes<Real> line_;
  RowTable fixedRows_;
};

template <class Real>
FirstRow<Real> sumFirstRow(const LagData& data) {
  FirstRowSum<Real> sum(data);
  const std::size_t shared = data.length() - data.maxLag();
  sum.add(data.firstRow(), shared);
  sum.keepCore();
  sum.add(shared, data.length());
  return sum.take();
}

// From the columns of the exogenous series and the constant, whose order in the result is constant first.
template <class Real>
void placeFixed(const LagData& data, const FirstRow<Real>& sums, LagCrossProducts<Real>& result) {
  const std::size_t count = data.seriesCount();
  const std::size_t fixed = data.fixedCount();
  const auto source = [&](std::size_t i) { return data.hasConstant() ? (i == 0 ? data.exogenousCount() : i - 1) : i; };
  for (std::size_t i = 0; i < fixed; ++i) {
    for (std::size_t j = i; j < fixed; ++j) result.products.set(i, j, sums.fixed.at(source(i), source(j)));
    for (std::size_t j = 0; j < count; ++j) {
      result.products.set(i, result.targetColumn + j, sums.lagged.at(count + source(i), j));
    }
    for (std::size_t j = count; j < (data.maxLag() + 1) * count; ++j) {
      result.products.set(i, fixed + j - count, sums.lagged.at(count + source(i), j));
    }
  }
}

// The products of lag l of series i with lag l + distance of series j, for l = 1, 2, ..: down one block diagonal. At
// lag l series i runs over the times firstRow - l .. T - 1 - l: those before firstRow, the ones that all share, and
// those from T - MAXLAG on.
template <class Real>
void placeDiagonal(const LagData& data, std::size_t distance, std::size_t i, std::size_t j, Real sum,
                   Planes<Real>& products) {
  const auto term = [&](std::size_t t) {
    return data.endogenous(i).at<Real>(t) * data.endogenous(j).at<Real>(t - distance);
  };
  const auto row = [&](std::size_t l) { return data.regressorCount(l - 1) + i; };
  const auto column = [&](std::size_t l) { return data.regressorCount(l + distance - 1) + j; };
  const std::size_t last = data.maxLag() - distance;
  for (std::size_t t = data.length() - data.maxLag(); t < data.length() - last; ++t) sum = sum + term(t);
  for (std::size_t l = last; l > 0; --l) {
    products.set(row(l), column(l), sum);
    sum = sum + term(data.length() - l);
  }
  Real before(0.0);
  for (std::size_t l = 1; l <= last; ++l) {
    before = before + term(data.firstRow() - l);
    products.set(row(l), column(l), products.at(row(l), column(l)) + before);
  }
}

}  // namespace

template <class Real>
LagCrossProducts<Real> lagCrossProducts(const LagData& data) {
  const std::size_t count = data.seriesCount();
  const std::size_t regressors = data.regressorCount(data.maxLag());
  const FirstRow<Real> sums = sumFirstRow<Real>(data);
  LagCrossProducts<Real> result;
  result.targetColumn = roundUpToTile(regressors);
  result.products = Planes<Real>(regressors, result.targetColumn + count);
  result.targets = Matrix(count, count);
  placeFixed(data, sums, result);
  for (std::size_t m = 0; m <= data.maxLag(); ++m) {
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t j = 0; j < count; ++j) {
        const std::size_t place = m * count + j;
        if (m == 0) {
          result.targets(i, j) = rounded(sums.lagged.at(i, j));
        } else {
          result.products.set(data.regressorCount(m - 1) + j, result.targetColumn + i, sums.lagged.at(i, place));
        }
        placeDiagonal(data, m, i, j, sums.core.at(i, place), result.products);
      }
    }
  }
  return result;
}

template LagCrossProducts<double> lagCrossProducts(const LagData&);
template LagCrossProducts<DoubleDouble> lagCrossProducts(const LagData&);

}  // namespace engine
