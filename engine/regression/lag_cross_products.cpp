#include "engine/regression/lag_cross_products.h"

#include <algorithm>

#include "engine/arithmetic/tile_products.h"

namespace engine {
namespace {

constexpr std::size_t kBlockRows = kSummedRows;
// Sums of squares that shrink by more than this lost over three digits to the end terms.
constexpr double kSmallestShare = 1e-3;

// The products of the unlagged columns [series, exogenous, constant] with the series at lags 0..MAXLAG (`lagged`) and
// with [exogenous, constant] (`fixed`).
template <class Real>
struct FirstRow {
  explicit FirstRow(const LagData& data)
      : lagged(data.seriesCount() + data.exogenousCount() + 1, (data.maxLag() + 1) * data.seriesCount()),
        fixed(data.exogenousCount() + 1, data.exogenousCount() + 1) {}
  Planes<Real> lagged;
  Planes<Real> fixed;
};

// Rows first .. last - 1 of the columns [series, exogenous, constant] at those times.
template <class Real>
void packUnlagged(const LagData& data, std::size_t first, std::size_t last, Planes<Real>& rows) {
  const std::size_t count = data.seriesCount();
  for (std::size_t t = first; t < last; ++t) {
    for (std::size_t i = 0; i < count; ++i) rows.set(t - first, i, data.centered<Real>(i, t));
    for (std::size_t i = 0; i < data.exogenousCount(); ++i) {
      rows.set(t - first, count + i, data.centeredExogenous<Real>(i, t));
    }
    rows.set(t - first, count + data.exogenousCount(), Real(1.0));
  }
}

// One long row: the series at time last - 1, then at last - 2, .., down to first - MAXLAG. The values from time t on
// are the window of t: lag 0 of every series, lag 1, ..
template <class Real>
void packWindows(const LagData& data, std::size_t first, std::size_t last, Planes<Real>& line) {
  const std::size_t count = data.seriesCount();
  std::size_t place = 0;
  for (std::size_t t = last; t-- > first - data.maxLag(); place += count) {
    for (std::size_t i = 0; i < count; ++i) line.set(0, place + i, data.centered<Real>(i, t));
  }
}

template <class Real>
FirstRow<Real> sumFirstRow(const LagData& data) {
  const std::size_t count = data.seriesCount();
  const std::size_t fixedCount = data.exogenousCount() + 1;
  const std::size_t width = (data.maxLag() + 1) * count;
  FirstRow<Real> sums(data);
  Planes<Real> unlagged(kBlockRows + 1,
                        count + fixedCount);  // tiles of `fixed` read past the end of a row
  Planes<Real> line(1, (kBlockRows + data.maxLag()) * count + kTileColumns);
  RowTable fixedRows;
  for (std::size_t r = 0; r < kBlockRows; ++r) fixedRows.addRow(unlagged, r, count);
  for (std::size_t first = data.maxLag(); first < data.length(); first += kBlockRows) {
    const std::size_t last = std::min(first + kBlockRows, data.length());
    packUnlagged(data, first, last, unlagged);
    packWindows(data, first, last, line);
    RowTable windows;
    for (std::size_t t = first; t < last; ++t) windows.addRow(line, 0, (last - 1 - t) * count);
    addTileProducts({.steps = last - first, .factorCount = count + fixedCount, .last = width}, unlagged, windows,
                    sums.lagged, 0, 0);
    addTileProducts({.steps = last - first, .factor = count, .factorCount = fixedCount, .last = fixedCount}, unlagged,
                    fixedRows, sums.fixed, 0, 0);
  }
  return sums;
}

void assign(DoubleDouble source, double& target) {
  target = source.hi;
}
void assign(DoubleDouble source, DoubleDouble& target) {
  target = source;
}

// From the columns of the exogenous series and the constant, whose order in the result is constant first.
template <class Real>
void placeFixed(const LagData& data, const FirstRow<Real>& sums, LagCrossProducts<Real>& result) {
  const std::size_t count = data.seriesCount();
  const std::size_t exogenous = data.exogenousCount();
  const auto source = [&](std::size_t i) { return i == 0 ? exogenous : i - 1; };
  for (std::size_t i = 0; i <= exogenous; ++i) {
    for (std::size_t j = i; j <= exogenous; ++j) result.products.set(i, j, sums.fixed.at(source(i), source(j)));
    for (std::size_t j = 0; j < count; ++j) {
      result.products.set(i, result.targetColumn + j, sums.lagged.at(count + source(i), j));
    }
    for (std::size_t j = count; j < (data.maxLag() + 1) * count; ++j) {
      result.products.set(i, exogenous + 1 + j - count, sums.lagged.at(count + source(i), j));
    }
  }
}

// The products of lag l of series i with lag l + distance of series j, for l = 1, 2, ..: down one block diagonal.
template <class Real>
void placeDiagonal(const LagData& data, std::size_t distance, std::size_t i, std::size_t j, DoubleDouble sum,
                   Planes<Real>& products) {
  const std::size_t maxLag = data.maxLag();
  const std::size_t length = data.length();
  for (std::size_t l = 1; l + distance <= maxLag; ++l) {
    const std::size_t m = l + distance;
    sum = sum + inTwice(data.centered<Real>(i, maxLag - l)) * inTwice(data.centered<Real>(j, maxLag - m));
    sum = sum - inTwice(data.centered<Real>(i, length - l)) * inTwice(data.centered<Real>(j, length - m));
    Real value{};
    assign(sum, value);
    products.set(data.regressorCount(l - 1) + i, data.regressorCount(m - 1) + j, value);
  }
}

template <class Real>
bool keptDigits(const LagData& data, const FirstRow<Real>& sums, const Planes<Real>& products) {
  for (std::size_t l = 0; l < data.maxLag(); ++l) {
    for (std::size_t i = 0; i < data.seriesCount(); ++i) {
      const std::size_t j = data.regressorCount(l) + i;
      if (!(rounded(products.at(j, j)) >= kSmallestShare * rounded(sums.lagged.at(i, i)))) return false;
    }
  }
  return true;
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
  placeFixed(data, sums, result);
  for (std::size_t m = 0; m <= data.maxLag(); ++m) {
    for (std::size_t i = 0; i < count; ++i) {
      for (std::size_t j = 0; j < count; ++j) {
        const Real sum = sums.lagged.at(i, m * count + j);
        if (m > 0) result.products.set(data.regressorCount(m - 1) + j, result.targetColumn + i, sum);
        placeDiagonal(data, m, i, j, inTwice(sum), result.products);
      }
    }
  }
  result.digitsKept = keptDigits(data, sums, result.products);
  return result;
}

template LagCrossProducts<double> lagCrossProducts(const LagData&);
template LagCrossProducts<DoubleDouble> lagCrossProducts(const LagData&);

}  // namespace engine
