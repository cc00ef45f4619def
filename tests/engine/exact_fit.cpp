#include "tests/engine/exact_fit.h"

#include <algorithm>

namespace engine {
namespace {

using Vector = std::vector<Exact>;
using Square = std::vector<Vector>;

// Regressors but the constant, one vector a column, less their means.
std::vector<Vector> centredColumns(const SeriesList& endogenous, const SeriesList& exogenous, std::size_t maxLag,
                                   Vector& means) {
  const std::size_t rows = endogenous.front().size() - maxLag;
  std::vector<Vector> columns;
  const auto add = [&](const std::vector<double>& series, std::size_t first) {
    columns.emplace_back(series.begin() + static_cast<std::ptrdiff_t>(first),
                         series.begin() + static_cast<std::ptrdiff_t>(first + rows));
  };
  for (std::size_t l = 1; l <= maxLag; ++l) {
    for (const auto& series : endogenous) add(series, maxLag - l);
  }
  for (const auto& series : exogenous) add(series, maxLag);
  for (const auto& series : endogenous) add(series, maxLag);  // the targets
  for (Vector& column : columns) {
    Exact sum = 0;
    for (const Exact& value : column) sum += value;
    means.push_back(sum / rows);
    for (Exact& value : column) value -= means.back();
  }
  return columns;
}

Exact dot(const Vector& a, const Vector& b) {
  Exact sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) sum += a[i] * b[i];
  return sum;
}

// Gauss-Jordan with partial pivoting; empty when singular.
Square inverseOf(Square a) {
  const std::size_t n = a.size();
  for (std::size_t i = 0; i < n; ++i) {
    a[i].resize(2 * n);
    a[i][n + i] = 1;
  }
  for (std::size_t c = 0; c < n; ++c) {
    std::size_t pivot = c;
    for (std::size_t r = c; r < n; ++r) {
      if (abs(a[r][c]) > abs(a[pivot][c])) pivot = r;
    }
    if (a[pivot][c] == 0) return {};
    std::swap(a[c], a[pivot]);
    const Exact reciprocal = 1 / a[c][c];
    for (Exact& value : a[c]) value *= reciprocal;
    for (std::size_t r = 0; r < n; ++r) {
      const Exact factor = a[r][c];
      if (r == c || factor == 0) continue;
      for (std::size_t j = c; j < 2 * n; ++j) a[r][j] -= factor * a[c][j];
    }
  }
  for (Vector& row : a) row.erase(row.begin(), row.begin() + static_cast<std::ptrdiff_t>(n));
  return a;
}

Exact norm(const Square& a) {
  Exact largest = 0;
  for (const Vector& row : a) {
    Exact sum = 0;
    for (const Exact& value : row) sum += abs(value);
    largest = std::max(largest, sum);
  }
  return largest;
}

Exact determinantOf(Square a) {
  Exact result = 1;
  for (std::size_t c = 0; c < a.size(); ++c) {
    if (a[c][c] == 0) return 0;
    result *= a[c][c];
    for (std::size_t r = c + 1; r < a.size(); ++r) {
      const Exact factor = a[r][c] / a[c][c];
      for (std::size_t j = c; j < a.size(); ++j) a[r][j] -= factor * a[c][j];
    }
  }
  return result;
}

// The correlations of the columns; `scales` are the roots of their sums of squares.
Square correlations(const std::vector<Vector>& columns, std::size_t count, const Vector& scales) {
  Square result(count, Vector(count));
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i; j < count; ++j) {
      result[i][j] = result[j][i] = dot(columns[i], columns[j]) / (scales[i] * scales[j]);
    }
  }
  return result;
}

void fitEquation(const std::vector<Vector>& columns, const Vector& target, const Vector& means, const Exact& targetMean,
                 const Vector& scales, const Square& inverse, ExactFit& fit) {
  const std::size_t count = inverse.size();
  const std::size_t rows = target.size();
  Vector products, coefficients(count + 1), errors(count + 1), residuals = target, meanWeights(count);
  for (std::size_t j = 0; j < count; ++j) products.push_back(dot(columns[j], target) / scales[j]);
  coefficients[0] = targetMean;
  for (std::size_t j = 0; j < count; ++j) {
    coefficients[j + 1] = dot(inverse[j], products) / scales[j];
    coefficients[0] -= coefficients[j + 1] * means[j];
    for (std::size_t r = 0; r < rows; ++r) residuals[r] -= coefficients[j + 1] * columns[j][r];
    meanWeights[j] = means[j] / scales[j];
  }
  const Exact variance = dot(residuals, residuals) / (rows - count - 1);
  Exact constant = Exact(1) / rows;
  for (std::size_t j = 0; j < count; ++j) {
    errors[j + 1] = sqrt(variance * inverse[j][j]) / scales[j];
    constant += meanWeights[j] * dot(inverse[j], meanWeights);
  }
  errors[0] = sqrt(variance * constant);
  fit.coefficients.push_back(std::move(coefficients));
  fit.standardErrors.push_back(std::move(errors));
  fit.residuals.push_back(std::move(residuals));
}

}  // namespace

ExactFit fitExactly(const SeriesList& endogenous, const SeriesList& exogenous, std::size_t maxLag) {
  Vector means;
  const std::vector<Vector> columns = centredColumns(endogenous, exogenous, maxLag, means);
  const std::size_t count = columns.size() - endogenous.size();
  ExactFit fit;
  Vector scales;
  for (std::size_t j = 0; j < count; ++j) {
    scales.push_back(sqrt(dot(columns[j], columns[j])));
    if (scales[j] <= 4.4e-16 * sqrt(Exact(columns[j].size())) * abs(means[j])) fit.withoutSpread = true;
  }
  if (fit.withoutSpread) return fit;
  const Square scaled = correlations(columns, count, scales);
  const Square inverse = inverseOf(scaled);
  if (inverse.empty()) return fit;
  fit.condition = 1 / (norm(scaled) * norm(inverse));
  if (fit.condition < 1e-40) return fit;
  for (std::size_t i = 0; i < endogenous.size(); ++i) {
    fitEquation(columns, columns[count + i], means, means[count + i], scales, inverse, fit);
  }
  Square covariance(endogenous.size(), Vector(endogenous.size()));
  for (std::size_t i = 0; i < covariance.size(); ++i) {
    for (std::size_t j = 0; j < covariance.size(); ++j) {
      covariance[i][j] = dot(fit.residuals[i], fit.residuals[j]) / fit.residuals[i].size();
    }
  }
  fit.determinant = determinantOf(covariance);
  return fit;
}

}  // namespace engine
