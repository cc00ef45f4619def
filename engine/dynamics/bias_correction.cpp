#include "engine/dynamics/bias_correction.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/arithmetic/moments.h"
#include "engine/dynamics/stability_test.h"
#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"

namespace engine {
namespace {

std::vector<double> shockDeviations(const FittedVar& fit) {
  std::vector<double> deviations;
  for (const std::vector<double>& residuals : fit.residuals) {
    deviations.push_back(std::sqrt(sumOfSquares(residuals) / residualDegrees(fit)));
  }
  return deviations;
}

// delta (A - A_c)' = delta b', solved against the lag block of (Z'Z)^-1: the inverse of that block times delta b'.
std::optional<Matrix> normalisedShift(const FittedVar& fit, const Matrix& bias, double share) {
  const auto factor = choleskyFactor(principalPart(fit.inverse, lagColumns(fit)));
  if (!factor) return std::nullopt;
  Matrix shift = transposed(bias);
  for (double& value : shift.values) value *= share;
  solveLower(*factor, shift);
  solveLowerTransposed(*factor, shift);
  return shift;
}

// The columns beside the lags take up what moving the slopes leaves in them.
void shiftCoefficients(const Matrix& bias, double share, const Matrix& shift, FittedVar& fit) {
  const std::size_t first = firstLagColumn(fit);
  for (std::size_t i = 0; i < bias.rows; ++i) {
    for (std::size_t j = 0; j < bias.columns; ++j) fit.coefficients(i, first + j) -= share * bias(i, j);
    for (const std::size_t column : deterministicColumns(fit)) {
      for (std::size_t j = 0; j < bias.columns; ++j) {
        fit.coefficients(i, column) -= fit.inverse(column, first + j) * shift(j, i);
      }
    }
  }
}

std::vector<std::vector<double>> deterministicPart(const FittedVar& fit, const VarSample& sample) {
  const std::vector<std::vector<double>> all = regressorColumns(fit, sample);
  std::vector<std::vector<double>> columns;
  for (const std::size_t j : deterministicColumns(fit)) columns.push_back(all[j]);
  return columns;
}

// What the known columns, less their means where there is a constant, do to the lags: the model's recursion on them.
std::vector<std::vector<double>> drivenLags(const FittedVar& fit, const VarSample& sample) {
  const std::size_t k = seriesCount(fit);
  const std::size_t n = rowCount(fit);
  const LagMatrices lags = lagMatrices(fit);
  const std::vector<std::vector<double>> regressors = regressorColumns(fit, sample);
  std::vector<std::vector<double>> path(k, std::vector<double>(n));
  for (std::size_t j = firstKnownColumn(fit); j < regressorCount(fit); ++j) {
    const double center = fit.constant ? mean(regressors[j]) : 0.0;
    for (std::size_t i = 0; i < k; ++i) {
      for (std::size_t r = 0; r < n; ++r) path[i][r] += fit.coefficients(i, j) * (regressors[j][r] - center);
    }
  }
  for (std::size_t r = 1; r < n; ++r) {
    for (std::size_t l = 1; l <= std::min(r, fit.lag); ++l) {
      for (std::size_t i = 0; i < k; ++i) {
        for (std::size_t j = 0; j < k; ++j) path[i][r] += lags[l - 1](i, j) * path[j][r - l];
      }
    }
  }
  std::vector<std::vector<double>> driven;
  for (std::size_t l = 1; l <= fit.lag; ++l) {
    for (const std::vector<double>& one : path) {
      std::vector<double>& column = driven.emplace_back(n);
      std::copy(one.begin(), one.end() - static_cast<std::ptrdiff_t>(std::min(l, n)),
                column.begin() + static_cast<std::ptrdiff_t>(std::min(l, n)));
    }
  }
  return driven;
}

}  // namespace

double stabilisingShare(std::span<const Matrix> lags, const Matrix& bias, std::vector<double> scales) {
  StabilityTest test(std::move(scales), lags.size());
  const std::vector<double> start = oldestFirst(joined(lags));
  const std::vector<double> step = oldestFirst(bias);
  std::vector<double> trial(start.size());
  for (int percent = 100; percent > 0; --percent) {
    for (std::size_t i = 0; i < trial.size(); ++i) trial[i] = start[i] - 0.01 * percent * step[i];
    if (test.isStable(trial)) return 0.01 * percent;
  }
  return 0.0;
}

std::optional<CorrectedModel> correctedModel(const FittedVar& fit, const Matrix& bias) {
  const double share = stabilisingShare(lagMatrices(fit), bias, shockDeviations(fit));
  const auto shift = normalisedShift(fit, bias, share);
  if (!shift) return std::nullopt;
  CorrectedModel result{bias, share, fit, residualCovariance(fit)};
  shiftCoefficients(bias, share, *shift, result.fit);
  addScaled(share / residualDegrees(fit), multiply(bias, *shift), result.covariance);
  return result;
}

std::optional<CorrectedModel> correctedModel(const FittedVar& fit, const VarSample& sample, const KnownTerms* terms) {
  const LagMatrices lags = lagMatrices(fit);
  const Matrix none(seriesCount(fit), fit.lag * seriesCount(fit));
  const Matrix covariance = residualCovariance(fit);
  if (!StabilityTest(shockDeviations(fit), fit.lag).isStable(oldestFirst(joined(lags)))) {
    return CorrectedModel{none, 0.0, fit, covariance};
  }
  const auto bias = terms != nullptr ? slopeBias(lags, covariance, rowCount(fit), *terms)
                                     : slopeBias(lags, covariance, rowCount(fit), deterministicPart(fit, sample),
                                                 drivenLags(fit, sample));
  return bias ? correctedModel(fit, *bias) : CorrectedModel{none, 0.0, fit, covariance};
}

}  // namespace engine
