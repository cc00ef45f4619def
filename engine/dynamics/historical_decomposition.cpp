#include <algorithm>
#include <utility>

#include "engine/dynamics/decompositions.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/lu.h"

namespace engine {
namespace {

// Adds to every row what the rows before it do through the lags; rows before the first are those of `before`, newest
// first (none: zeros).
void propagate(std::span<const Matrix> lags, std::span<const std::vector<double>> before, Matrix& rows) {
  for (std::size_t r = 0; r < rows.rows; ++r) {
    for (std::size_t l = 1; l <= lags.size(); ++l) {
      if (l > r && l - r > before.size()) continue;
      const std::span<const double> past = l <= r ? std::span<const double>(rows.row(r - l)) : before[l - r - 1];
      for (std::size_t i = 0; i < rows.columns; ++i) {
        for (std::size_t j = 0; j < rows.columns; ++j) rows(r, i) += lags[l - 1](i, j) * past[j];
      }
    }
  }
}

// The columns' part of the equations, n x K.
Matrix inputOf(const FittedVar& fit, std::span<const std::vector<double>> regressors,
               std::span<const std::size_t> columns) {
  Matrix input(rowCount(fit), seriesCount(fit));
  for (const std::size_t j : columns) {
    for (std::size_t r = 0; r < input.rows; ++r) {
      for (std::size_t i = 0; i < input.columns; ++i) input(r, i) += fit.coefficients(i, j) * regressors[j][r];
    }
  }
  return input;
}

// Observations firstRow - 1, firstRow - 2, .., firstRow - p.
std::vector<std::vector<double>> rowsBefore(const FittedVar& fit, const VarSample& sample) {
  std::vector<std::vector<double>> before;
  for (std::size_t l = 1; l <= fit.lag; ++l) {
    std::vector<double>& row = before.emplace_back();
    for (const std::vector<double>& series : sample.series) row.push_back(series[fit.firstRow - l]);
  }
  return before;
}

// P_j times the orthogonal shock j = row j of P^-1 times the residuals.
std::vector<Matrix> shockInputs(const FittedVar& fit, const Matrix& root) {
  const std::size_t k = seriesCount(fit);
  Matrix inverse;
  std::vector<Matrix> inputs(k, Matrix(rowCount(fit), k));
  if (!invertMatrix(root, inverse)) return inputs;
  for (std::size_t r = 0; r < rowCount(fit); ++r) {
    for (std::size_t j = 0; j < k; ++j) {
      double shock = 0.0;
      for (std::size_t i = 0; i < k; ++i) shock += inverse(j, i) * fit.residuals[i][r];
      for (std::size_t i = 0; i < k; ++i) inputs[j](r, i) = root(i, j) * shock;
    }
  }
  return inputs;
}

}  // namespace

HistoricalDecomposition historicalDecomposition(const FittedVar& fit, const VarSample& sample, const Matrix& root,
                                                std::span<const std::vector<std::size_t>> exogenousColumns) {
  const LagMatrices lags = lagMatrices(fit);
  const std::vector<std::vector<double>> regressors = regressorColumns(fit, sample);
  std::vector<std::size_t> rest = deterministicColumns(fit);
  HistoricalDecomposition result;
  for (const std::vector<std::size_t>& columns : exogenousColumns) {
    for (const std::size_t column : columns) std::erase(rest, column);
    result.exogenous.push_back(inputOf(fit, regressors, columns));
    propagate(lags, {}, result.exogenous.back());
  }
  result.deterministic = inputOf(fit, regressors, rest);
  propagate(lags, {}, result.deterministic);
  result.initial = Matrix(rowCount(fit), seriesCount(fit));
  propagate(lags, rowsBefore(fit, sample), result.initial);
  result.shocks = shockInputs(fit, root);
  for (Matrix& one : result.shocks) propagate(lags, {}, one);
  return result;
}

}  // namespace engine
