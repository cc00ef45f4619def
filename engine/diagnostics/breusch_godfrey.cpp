#include "engine/diagnostics/breusch_godfrey.h"

#include <algorithm>
#include <cmath>

#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/orthonormal_basis.h"
#include "engine/linear_algebra/products.h"
#include "engine/linear_algebra/symmetric_eigen.h"

namespace engine {
namespace {

bool appendAll(OrthonormalBasis& basis, std::span<const std::vector<double>> columns) {
  return std::ranges::all_of(columns, [&](const std::vector<double>& column) { return basis.append(column); });
}

// The columns `lag` rows later, zeros first.
std::vector<std::vector<double>> lagged(ResidualList residuals, std::size_t lag) {
  std::vector<std::vector<double>> result(residuals.begin(), residuals.end());
  for (std::vector<double>& one : result) {
    std::shift_right(one.begin(), one.end(), static_cast<std::ptrdiff_t>(lag));
    std::fill_n(one.begin(), lag, 0.0);
  }
  return result;
}

// (1 / lambda^(1/r) - 1), lambda the product of 1 - c over the squared canonical correlations c: small ones keep their
// digits.
double raoRatio(const std::vector<double>& squaredCorrelations, double r) {
  double logarithm = 0.0;
  for (const double c : squaredCorrelations) logarithm += std::log1p(-std::min(c, 1.0));
  return std::expm1(-logarithm / r);
}

double raoRoot(double k, double m) {
  const double below = k * k + m * m - 5.0;
  return below > 0.0 ? std::sqrt((k * k * m * m - 4.0) / below) : 1.0;
}

struct Sizes {
  double n;
  double m;  // regressors of the model
  double k;
};

// Of the lags 1..j. `explained`: coordinates of the standardised residuals in the space of their lags, (j K) x K.
BreuschGodfrey testOf(const Matrix& explained, std::size_t j, const Sizes& sizes) {
  const double lagColumns = static_cast<double>(j) * sizes.k;
  BreuschGodfrey result;
  result.lags = j;
  result.lagrange = chiSquaredTest(sizes.n * sumOfSquares(explained), lagColumns * sizes.k);
  const double r = raoRoot(sizes.k, lagColumns);
  const double rows = sizes.n - sizes.m - lagColumns - (sizes.k - lagColumns + 1.0) / 2.0;
  const double denominator = rows * r - sizes.k * lagColumns / 2.0 + 1.0;
  if (!(denominator > 0.0)) return {};
  const double ratio = raoRatio(symmetricEigen(crossProduct(explained)).values, r);
  result.rao = fTest(ratio * denominator / (sizes.k * lagColumns), sizes.k * lagColumns, denominator);
  return result;
}

}  // namespace

std::vector<BreuschGodfrey> breuschGodfrey(ResidualList residuals, std::span<const std::vector<double>> regressors,
                                           std::size_t h) {
  auto standardised = choleskyStandardised(residuals);
  OrthonormalBasis basis;
  if (!standardised || !appendAll(basis, regressors)) return {};
  const auto n = static_cast<double>(residuals.front().size());
  for (std::vector<double>& one : *standardised) {
    for (double& value : one) value /= std::sqrt(n);  // so that their products sum to the identity
  }
  const Sizes sizes{n, static_cast<double>(regressors.size()), static_cast<double>(residuals.size())};
  std::vector<BreuschGodfrey> result;
  for (std::size_t j = 1; j <= h && appendAll(basis, lagged(*standardised, j)); ++j) {
    result.push_back(testOf(basis.coordinates(*standardised, regressors.size()), j, sizes));
    if (result.back().lags == 0) {
      result.pop_back();
      break;
    }
  }
  return result;
}

}  // namespace engine
