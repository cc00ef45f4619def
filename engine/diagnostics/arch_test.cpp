#include "engine/diagnostics/arch_test.h"

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

// One column for each pair i >= j: the products of the two, row by row.
std::vector<std::vector<double>> distinctProducts(ResidualList residuals) {
  std::vector<std::vector<double>> result;
  for (std::size_t j = 0; j < residuals.size(); ++j) {
    for (std::size_t i = j; i < residuals.size(); ++i) {
      std::vector<double> column(residuals[i]);
      for (std::size_t t = 0; t < column.size(); ++t) column[t] *= residuals[j][t];
      result.push_back(std::move(column));
    }
  }
  return result;
}

// Constant and lags 1..h of the columns, on the rows h, h + 1, ..
bool appendLags(OrthonormalBasis& basis, const std::vector<std::vector<double>>& columns, std::size_t h) {
  const std::size_t rows = columns.front().size() - h;
  if (!basis.append(std::vector<double>(rows, 1.0))) return false;
  for (std::size_t lag = 1; lag <= h; ++lag) {
    for (const std::vector<double>& column : columns) {
      if (!basis.append(std::span(column).subspan(h - lag, rows))) return false;
    }
  }
  return true;
}

// The rows h, h + 1, .. of the columns, less their means: what the lags are to explain.
std::vector<std::vector<double>> centredTargets(const std::vector<std::vector<double>>& columns, std::size_t h) {
  std::vector<std::vector<double>> targets;
  for (const std::vector<double>& column : columns) {
    targets.emplace_back(column.begin() + static_cast<std::ptrdiff_t>(h), column.end());
  }
  return centredResiduals(targets);
}

}  // namespace

std::optional<ChiSquaredTest> multivariateArch(ResidualList residuals, std::size_t h) {
  const auto standardised = choleskyStandardised(centredResiduals(residuals));
  const std::size_t n = residuals.front().size();
  const std::size_t products = residuals.size() * (residuals.size() + 1) / 2;
  if (!standardised || h == 0 || n <= h + products * (h + 1) + 1) return std::nullopt;
  const std::vector<std::vector<double>> columns = distinctProducts(*standardised);
  OrthonormalBasis basis;
  if (!appendLags(basis, columns, h)) return std::nullopt;
  const std::vector<std::vector<double>> targets = centredTargets(columns, h);
  const std::optional<Matrix> total = choleskyFactor(columnProducts(targets, targets));
  if (!total) return std::nullopt;
  // tr((Om_0 - Om) Om_0^-1) without the subtraction: coordinates of the targets in the space of the lags.
  Matrix explained = transposed(basis.coordinates(targets, 1));
  solveLower(*total, explained);
  return chiSquaredTest(static_cast<double>(n - h) * sumOfSquares(explained),
                        static_cast<double>(h * products * products));
}

std::optional<ChiSquaredTest> univariateArch(const std::vector<double>& residuals, std::size_t h) {
  return multivariateArch(std::span(&residuals, 1), h);
}

}  // namespace engine
