#include "engine/dynamics/fit_parts.h"

#include <numeric>

#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

Matrix productsOver(const FittedVar& fit, double divisor) {
  Matrix products = columnProducts(fit.residuals, fit.residuals);
  for (double& value : products.values) value /= divisor;
  return products;
}

std::vector<double> slice(const std::vector<double>& values, std::size_t first, std::size_t count) {
  const auto start = values.begin() + static_cast<std::ptrdiff_t>(first);
  return {start, start + static_cast<std::ptrdiff_t>(count)};
}

}  // namespace

Matrix residualCovariance(const FittedVar& fit) {
  return productsOver(fit, residualDegrees(fit));
}

Matrix likelihoodCovariance(const FittedVar& fit) {
  return productsOver(fit, static_cast<double>(rowCount(fit)));
}

std::vector<std::size_t> lagColumns(const FittedVar& fit) {
  std::vector<std::size_t> columns(fit.lag * seriesCount(fit));
  std::iota(columns.begin(), columns.end(), firstLagColumn(fit));
  return columns;
}

std::vector<std::size_t> deterministicColumns(const FittedVar& fit) {
  std::vector<std::size_t> columns;
  if (fit.constant) columns.push_back(0);
  for (std::size_t j = firstKnownColumn(fit); j < regressorCount(fit); ++j) columns.push_back(j);
  return columns;
}

std::vector<std::vector<double>> regressorColumns(const FittedVar& fit, const VarSample& sample) {
  const std::size_t n = rowCount(fit);
  std::vector<std::vector<double>> columns;
  if (fit.constant) columns.emplace_back(n, 1.0);
  for (std::size_t lag = 1; lag <= fit.lag; ++lag) {
    for (const std::vector<double>& series : sample.series) columns.push_back(slice(series, fit.firstRow - lag, n));
  }
  for (const std::vector<double>& known : sample.known) columns.push_back(slice(known, fit.firstRow, n));
  return columns;
}

}  // namespace engine
