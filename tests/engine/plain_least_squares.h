// The textbook way: a design matrix for every lag, plain loops, one inversion. What the engine is compared with.

#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

#include "engine/linear_algebra/lu.h"
#include "engine/linear_algebra/matrix.h"
#include "engine/linear_algebra/products.h"

namespace engine {

// A B, every element summed in ascending order.
inline Matrix product(const Matrix& a, const Matrix& b) {
  Matrix result(a.rows, b.columns);
  for (std::size_t i = 0; i < a.rows; ++i) {
    for (std::size_t c = 0; c < a.columns; ++c) {
      for (std::size_t j = 0; j < b.columns; ++j) result(i, j) += a(i, c) * b(c, j);
    }
  }
  return result;
}

// X, n x k with n = T - maxLag: row r is observation t = maxLag + r; columns 1, the series at t - 1, .., t - lag, then
// the exogenous series at t.
inline Matrix designMatrix(const std::vector<std::vector<double>>& endogenous,
                           const std::vector<std::vector<double>>& exogenous, std::size_t maxLag, std::size_t lag) {
  Matrix x(endogenous.front().size() - maxLag, 1 + lag * endogenous.size() + exogenous.size());
  for (std::size_t r = 0; r < x.rows; ++r) {
    double* next = x.row(r).data();
    *next++ = 1.0;
    for (std::size_t l = 1; l <= lag; ++l) {
      for (const std::vector<double>& series : endogenous) *next++ = series[maxLag + r - l];
    }
    for (const std::vector<double>& series : exogenous) *next++ = series[maxLag + r];
  }
  return x;
}

// Y, n x K.
inline Matrix targetMatrix(const std::vector<std::vector<double>>& endogenous, std::size_t maxLag) {
  Matrix y(endogenous.front().size() - maxLag, endogenous.size());
  for (std::size_t r = 0; r < y.rows; ++r) {
    for (std::size_t i = 0; i < y.columns; ++i) y(r, i) = endogenous[i][maxLag + r];
  }
  return y;
}

struct PlainFit {
  Matrix coefficients;    // k x K
  Matrix residuals;       // n x K
  Matrix standardErrors;  // k x K
};

// b = (X'X)^-1 X'Y, e = Y - X b, and standard errors from the centred residual variance over n - k. Nothing when X'X
// has an exactly zero pivot.
inline std::optional<PlainFit> fitPlainly(const Matrix& x, const Matrix& y) {
  Matrix inverse;
  if (!invertCrossProduct(x, inverse)) return std::nullopt;
  PlainFit fit{product(inverse, crossProduct(x, y)), y, Matrix(x.columns, y.columns)};
  const Matrix fitted = product(x, fit.coefficients);
  for (std::size_t i = 0; i < y.values.size(); ++i) fit.residuals.values[i] -= fitted.values[i];
  for (std::size_t i = 0; i < y.columns; ++i) {
    const std::vector<double> e = columnOf(fit.residuals, i);
    double sum = 0.0;
    double squares = 0.0;
    for (const double value : e) sum += value;
    for (const double value : e) squares += std::pow(value - sum / static_cast<double>(e.size()), 2);
    const double variance = squares / static_cast<double>(x.rows - x.columns);
    for (std::size_t j = 0; j < x.columns; ++j) {
      fit.standardErrors(j, i) = std::sqrt(std::max(variance * inverse(j, j), 0.0));
    }
  }
  return fit;
}

}  // namespace engine
