#include "engine/regression/nested_regression.h"

#include <algorithm>
#include <utility>

#include "engine/arithmetic/tile_products.h"

namespace engine {
namespace {

std::size_t roundDownToTile(std::size_t column) {
  return column / kTileColumns * kTileColumns;
}

// target(row) -= factor * source(row) from column `first` to the end of the rows.
template <class Real>
void subtractScaledRow(Real factor, const Planes<Real>& source, std::size_t sourceRow, Planes<Real>& target,
                       std::size_t targetRow, std::size_t first, std::size_t last) {
  for (std::size_t j = first; j < last; ++j) {
    target.set(targetRow, j, target.at(targetRow, j) - factor * source.at(sourceRow, j));
  }
}

}  // namespace

template <class Real>
NestedRegression<Real>::NestedRegression(Planes<Real> crossProducts, std::size_t targetColumn, std::size_t targetCount)
    : factor_(std::move(crossProducts)),
      inverseFactor_(factor_.rows(), factor_.rows()),
      inverse_(factor_.rows(), factor_.rows()),
      coefficients_(factor_.rows(), targetCount),
      explained_(targetCount, targetCount),
      panel_(kTileRows, factor_.stride()),
      factorRows_(rowsOf(factor_)),
      inverseFactorRows_(rowsOf(inverseFactor_)),
      targetColumn_(targetColumn),
      targetCount_(targetCount) {
  for (std::size_t i = 0; i < factor_.rows(); ++i) targetRows_.addRow(factor_, i, targetColumn_);
}

template <class Real>
bool NestedRegression<Real>::extendTo(std::size_t count) {
  for (std::size_t first = count_; first < count; first += kTileRows) {
    const std::size_t height = std::min(kTileRows, count - first);
    if (!factorRows(first, height)) return false;
    invertRows(first, height);
  }
  extendInverse(count_, count);
  extendCoefficients(count_, count);
  extendExplained(count_, count);
  count_ = count;
  return true;
}

// U(i, j) = (Z'Z(i, j) - sum over the rows c < i of U(c, i) U(c, j)) / U(i, i): the sum over the finished rows by
// tiles, that over the rows of this group one by one.
template <class Real>
bool NestedRegression<Real>::factorRows(std::size_t first, std::size_t height) {
  const std::size_t start = roundDownToTile(first);
  const std::size_t last = factor_.stride();
  panel_.setZero();
  addTileProducts({.steps = first, .factor = first, .factorCount = height, .first = start, .last = last}, factor_,
                  factorRows_, panel_, 0, start);
  for (std::size_t i = first; i < first + height; ++i) {
    for (std::size_t j = i; j < last; ++j) factor_.set(i, j, factor_.at(i, j) - panel_.at(i - first, j));
    for (std::size_t c = first; c < i; ++c) subtractScaledRow(factor_.at(c, i), factor_, c, factor_, i, i, last);
    const Real pivot = factor_.at(i, i);
    if (!(rounded(pivot) > 0.0)) return false;
    const Real reciprocal = Real(1.0) / squareRoot(pivot);
    for (std::size_t j = i; j < last; ++j) factor_.set(i, j, factor_.at(i, j) * reciprocal);
  }
  return true;
}

// Row i of U'^-1: (e(i) - sum over c < i of U(c, i) U'^-1(c)) / U(i, i).
template <class Real>
void NestedRegression<Real>::invertRows(std::size_t first, std::size_t height) {
  panel_.setZero();
  addTileProducts({.steps = first, .factor = first, .factorCount = height, .last = first}, factor_, inverseFactorRows_,
                  panel_, 0, 0);
  for (std::size_t i = first; i < first + height; ++i) {
    inverseFactor_.set(i, i, Real(1.0));
    for (std::size_t j = 0; j < first; ++j) inverseFactor_.set(i, j, -panel_.at(i - first, j));
    for (std::size_t c = first; c < i; ++c) {
      subtractScaledRow(factor_.at(c, i), inverseFactor_, c, inverseFactor_, i, 0, c + 1);
    }
    const Real reciprocal = Real(1.0) / factor_.at(i, i);
    for (std::size_t j = 0; j <= i; ++j) inverseFactor_.set(i, j, inverseFactor_.at(i, j) * reciprocal);
  }
}

// (Z'Z)^-1 is the sum of the outer products of the rows of U'^-1, so that new rows add to it.
template <class Real>
void NestedRegression<Real>::extendInverse(std::size_t first, std::size_t last) {
  for (std::size_t i = 0; i < last; i += kTileRows) {
    addTileProducts({.steps = last - first,
                     .factorRow = first,
                     .factor = i,
                     .factorCount = std::min(kTileRows, last - i),
                     .row = first,
                     .first = i,
                     .last = last},
                    inverseFactor_, inverseFactorRows_, inverse_, i, i);
  }
}

template <class Real>
void NestedRegression<Real>::extendCoefficients(std::size_t first, std::size_t last) {
  addTileProducts({.steps = last - first, .factorRow = first, .factorCount = last, .row = first, .last = targetCount_},
                  inverseFactor_, targetRows_, coefficients_, 0, 0);
}

// Y'Z (Z'Z)^-1 Z'Y = (U'^-1 Z'Y)' (U'^-1 Z'Y).
template <class Real>
void NestedRegression<Real>::extendExplained(std::size_t first, std::size_t last) {
  addTileProducts({.steps = last - first,
                   .factorRow = first,
                   .factor = targetColumn_,
                   .factorCount = targetCount_,
                   .row = first,
                   .last = targetCount_},
                  factor_, targetRows_, explained_, 0, 0);
}

template class NestedRegression<double>;
template class NestedRegression<DoubleDouble>;

}  // namespace engine
