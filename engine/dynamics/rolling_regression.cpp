#include "engine/dynamics/rolling_regression.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/arithmetic/scaled_addition.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

// A row may go by updating while it is not this close to being indispensable; then all is summed again.
constexpr double kLeastRemainder = 0.05;

}  // namespace

RollingRegression::RollingRegression(const FittedVar& whole, const VarSample& sample)
    : whole_(whole),
      sample_(sample),
      size_(regressorCount(whole)),
      root_(choleskyFactor(whole.inverse).value_or(Matrix())),
      turnedRoot_(transposed(root_)),
      last_(rowCount(whole)),
      inverse_(identityMatrix(size_)),
      shift_(size_, seriesCount(whole)),
      plainShift_(size_, seriesCount(whole)),
      plain_(size_),
      row_(size_),
      gain_(size_),
      plainGain_(size_),
      errors_(seriesCount(whole)) {}

void RollingRegression::fillRow(std::size_t row) {
  std::size_t next = 0;
  const std::size_t t = whole_.firstRow + row;
  if (whole_.constant) plain_[next++] = 1.0;
  for (std::size_t lag = 1; lag <= whole_.lag; ++lag) {
    for (const std::vector<double>& series : sample_.series) plain_[next++] = series[t - lag];
  }
  for (const std::vector<double>& known : sample_.known) plain_[next++] = known[t];
  std::ranges::fill(row_, 0.0);
  for (std::size_t i = 0; i < size_; ++i) addScaled(plain_[i], root_.row(i).data(), row_.data(), i + 1);
}

// Adds (sign 1) or drops (sign -1) a row: recursive least squares.
bool RollingRegression::changeRow(std::size_t row, double sign) {
  fillRow(row);
  std::ranges::fill(gain_, 0.0);
  for (std::size_t i = 0; i < size_; ++i) addScaled(row_[i], inverse_.row(i).data(), gain_.data(), size_);
  const double remainder = 1.0 + sign * dotProduct(row_, gain_);
  if (!(remainder > kLeastRemainder)) return sumAgain();
  for (std::size_t k = 0; k < errors_.size(); ++k) errors_[k] = whole_.residuals[k][row];
  for (std::size_t i = 0; i < size_; ++i) addScaled(-row_[i], shift_.row(i).data(), errors_.data(), errors_.size());
  std::ranges::fill(plainGain_, 0.0);
  for (std::size_t i = 0; i < size_; ++i) {
    addScaled(gain_[i], turnedRoot_.row(i).data() + i, plainGain_.data() + i, size_ - i);
  }
  for (std::size_t i = 0; i < size_; ++i) {
    addScaled(sign * gain_[i] / remainder, errors_.data(), shift_.row(i).data(), errors_.size());
    addScaled(sign * plainGain_[i] / remainder, errors_.data(), plainShift_.row(i).data(), errors_.size());
  }
  for (std::size_t i = 0; i < size_; ++i) {
    addScaled(-sign * gain_[i] / remainder, gain_.data(), inverse_.row(i).data(), size_);
  }
  return true;
}

// From the rows of the window, whatever was updated before.
bool RollingRegression::sumAgain() {
  Matrix sums(size_, size_);
  Matrix products(size_, shift_.columns);
  for (std::size_t r = first_; r < last_; ++r) {
    fillRow(r);
    for (std::size_t i = 0; i < size_; ++i) {
      addScaled(row_[i], row_.data(), sums.row(i).data(), size_);
      for (std::size_t k = 0; k < products.columns; ++k) products(i, k) += row_[i] * whole_.residuals[k][r];
    }
  }
  const auto factor = choleskyFactor(sums);
  if (!factor) return false;
  inverse_ = inverseFromCholesky(*factor);
  shift_ = multiply(inverse_, products);
  plainShift_ = multiply(root_, shift_);
  return true;
}

bool RollingRegression::moveTo(std::size_t first, std::size_t last) {
  if (root_.rows == 0) return false;
  bool regular = true;
  while (regular && last_ < last) regular = changeRow(last_++, 1.0);
  while (regular && first_ > first) regular = changeRow(--first_, 1.0);
  while (regular && last_ > last) regular = changeRow(--last_, -1.0);
  while (regular && first_ < first) regular = changeRow(first_++, -1.0);
  return regular;
}

Matrix RollingRegression::coefficients() const {
  Matrix result = whole_.coefficients;
  for (std::size_t i = 0; i < result.rows; ++i) {
    for (std::size_t j = 0; j < size_; ++j) result(i, j) += plainShift_(j, i);
  }
  return result;
}

FittedVar RollingRegression::fit() const {
  FittedVar fit;
  fit.lag = whole_.lag;
  fit.constant = whole_.constant;
  fit.firstRow = whole_.firstRow + first_;
  fit.coefficients = coefficients();
  for (const std::vector<double>& residuals : whole_.residuals) {
    fit.residuals.emplace_back(residuals.begin() + static_cast<std::ptrdiff_t>(first_),
                               residuals.begin() + static_cast<std::ptrdiff_t>(last_));
  }
  const std::vector<std::vector<double>> columns = regressorColumns(fit, sample_);
  for (std::size_t j = 0; j < size_; ++j) {
    for (std::size_t k = 0; k < fit.residuals.size(); ++k) {
      addScaled(-plainShift_(j, k), columns[j].data(), fit.residuals[k].data(), last_ - first_);
    }
  }
  fit.inverse = multiplyTransposed(multiply(root_, inverse_), root_);
  return fit;
}

}  // namespace engine
