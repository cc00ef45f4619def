#include "engine/dynamics/rolling_regression.h"

#include <utility>

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {

RollingRegression::RollingRegression(std::span<const std::vector<double>> columns,
                                     std::span<const std::vector<double>> targets)
    : rest_(targets.begin(), targets.end()),
      columns_(columns.size()),
      sums_(columns.size(), columns.size()),
      crossSums_(columns.size(), targets.size()) {
  for (const std::vector<double>& column : columns) regular_ = regular_ && basis_.append(column);
  if (!regular_) return;
  triangle_ = basis_.coordinates(columns);
  whole_ = basis_.coordinates(targets);
  for (std::vector<double>& one : rest_) basis_.removeFrom(one);
}

void RollingRegression::addRow(std::size_t row, double sign) {
  for (std::size_t i = 0; i < columns_; ++i) {
    const double factor = sign * basis_[i][row];
    for (std::size_t j = 0; j <= i; ++j) sums_(i, j) += factor * basis_[j][row];
    for (std::size_t k = 0; k < rest_.size(); ++k) crossSums_(i, k) += factor * rest_[k][row];
  }
}

void RollingRegression::moveTo(std::size_t first, std::size_t last) {
  for (; last_ < last; ++last_) addRow(last_, 1.0);
  for (; last_ > last; --last_) addRow(last_ - 1, -1.0);
  for (; first_ < first; ++first_) addRow(first_, -1.0);
  for (; first_ > first; --first_) addRow(first_ - 1, 1.0);
}

std::optional<RollingRegression::Solution> RollingRegression::solve() const {
  auto factor = choleskyFactor(sums_);
  if (!factor) return std::nullopt;
  Matrix shift = crossSums_;
  solveLower(*factor, shift);
  solveLowerTransposed(*factor, shift);
  return Solution{std::move(*factor), std::move(shift)};
}

// R X = B by back substitution.
Matrix RollingRegression::inColumns(Matrix b) const {
  for (std::size_t i = b.rows; i-- > 0;) {
    for (std::size_t c = i + 1; c < b.rows; ++c) {
      for (std::size_t j = 0; j < b.columns; ++j) b(i, j) -= triangle_(i, c) * b(c, j);
    }
    for (double& value : b.row(i)) value /= triangle_(i, i);
  }
  return b;
}

std::optional<Matrix> RollingRegression::coefficients() const {
  auto solution = solve();
  if (!solution) return std::nullopt;
  addScaled(1.0, whole_, solution->shift);
  return transposed(inColumns(std::move(solution->shift)));
}

std::optional<WindowFit> RollingRegression::fit() const {
  auto solution = solve();
  if (!solution) return std::nullopt;
  WindowFit result;
  for (std::size_t k = 0; k < rest_.size(); ++k) {
    const auto start = rest_[k].begin();
    std::vector<double>& residuals = result.residuals.emplace_back(start + static_cast<std::ptrdiff_t>(first_),
                                                                   start + static_cast<std::ptrdiff_t>(last_));
    for (std::size_t i = 0; i < columns_; ++i) {
      const double factor = solution->shift(i, k);
      for (std::size_t r = 0; r < residuals.size(); ++r) residuals[r] -= factor * basis_[i][first_ + r];
    }
  }
  addScaled(1.0, whole_, solution->shift);
  result.coefficients = transposed(inColumns(std::move(solution->shift)));
  Matrix root = identityMatrix(columns_);
  solveLower(solution->factor, root);
  root = inColumns(transposed(root));  // R^-1 L^-T, whose product with its transpose is the inverse
  result.inverse = multiplyTransposed(root, root);
  return result;
}

}  // namespace engine
