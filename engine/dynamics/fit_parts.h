// The parts of a fitted vector autoregression, by name.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/regression/fitted_var.h"

namespace engine {

inline std::size_t seriesCount(const FittedVar& fit) {
  return fit.coefficients.rows;  // K
}
inline std::size_t regressorCount(const FittedVar& fit) {
  return fit.coefficients.columns;  // m
}
inline std::size_t rowCount(const FittedVar& fit) {
  return fit.residuals.empty() ? 0 : fit.residuals.front().size();  // n
}
inline std::size_t firstLagColumn(const FittedVar& fit) {
  return fit.constant ? 1 : 0;
}
inline std::size_t firstKnownColumn(const FittedVar& fit) {
  return firstLagColumn(fit) + fit.lag * seriesCount(fit);
}
// n - m, which the covariance S, t and F use.
inline double residualDegrees(const FittedVar& fit) {
  return static_cast<double>(rowCount(fit)) - static_cast<double>(regressorCount(fit));
}

// E'E / (n - m) = S, and E'E / n = V, K x K.
Matrix residualCovariance(const FittedVar& fit);
Matrix likelihoodCovariance(const FittedVar& fit);

// Columns of the regressors that are lags, in their order, and of all others.
std::vector<std::size_t> lagColumns(const FittedVar& fit);
std::vector<std::size_t> deterministicColumns(const FittedVar& fit);

// What a model is fitted to: K series of T values, and the known columns (trend, seasons, exogenous series) that go
// into every equation, T values each and after them those of the rows to be forecast.
struct VarSample {
  std::span<const std::vector<double>> series;
  std::span<const std::vector<double>> known;
};

// Z by columns: m columns of n values, in the order of the coefficients.
std::vector<std::vector<double>> regressorColumns(const FittedVar& fit, const VarSample& sample);

}  // namespace engine
