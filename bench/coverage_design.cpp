#include "bench/coverage_design.h"

#include <cmath>

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/products.h"

namespace bench {
namespace {

constexpr std::size_t kSeries = 3;
constexpr std::size_t kBurnIn = 300;
constexpr double kOtherRoots[kSeries][2] = {
    {0.0, 0.3}, {0.7, -0.3}, {0.5, 0.2}};  // the first pair holds the design's root
constexpr double kMixing[kSeries][kSeries] = {{1.0, 0.4, -0.3}, {0.5, 1.0, 0.2}, {-0.4, 0.3, 1.0}};
constexpr double kShocks[kSeries][kSeries] = {{1.0, 0.0, 0.0}, {0.5, 0.87, 0.0}, {0.3, 0.3, 0.9}};
constexpr std::size_t kSeasons = 4;

double shock(const Design& design, engine::RandomStream& random) {
  const double z = random.normal();
  if (!design.heavyTails) return z;
  double chiSquared = 0.0;
  for (int i = 0; i < 5; ++i) chiSquared += std::pow(random.normal(), 2);
  return z / std::sqrt(chiSquared / 3.0);  // t(5), scaled to variance 1
}

// Independent AR(2) processes with correlated shocks; an exogenous series enters the first.
std::vector<std::vector<double>> components(const Design& design, std::size_t length,
                                            const std::vector<double>& exogenous, engine::RandomStream& random) {
  std::vector<std::vector<double>> z(kSeries, std::vector<double>(length));
  for (std::size_t t = 2; t < length; ++t) {
    double shocks[kSeries];
    for (double& one : shocks) one = shock(design, random);
    for (std::size_t i = 0; i < kSeries; ++i) {
      const double first = i == 0 ? design.root : kOtherRoots[i][0];
      const double second = kOtherRoots[i][1];
      z[i][t] = (first + second) * z[i][t - 1] - first * second * z[i][t - 2];
      for (std::size_t j = 0; j <= i; ++j) z[i][t] += kShocks[i][j] * shocks[j];
      if (!exogenous.empty()) z[i][t] += exogenous[t];
    }
  }
  return z;
}

std::vector<double> autoregression(double root, std::size_t length, engine::RandomStream& random) {
  std::vector<double> x(length);
  for (std::size_t t = 1; t < length; ++t) x[t] = root * x[t - 1] + random.normal();
  return x;
}

std::vector<std::vector<double>> knownColumns(const Design& design, const std::vector<double>& exogenous,
                                              std::size_t length) {
  std::vector<std::vector<double>> columns;
  if (design.terms == "EXOGENOUS")
    columns.emplace_back(exogenous.end() - static_cast<std::ptrdiff_t>(length), exogenous.end());
  if (design.terms == "TREND") {
    columns.emplace_back(length);
    for (std::size_t t = 0; t < length; ++t) columns[0][t] = static_cast<double>(t);
  }
  for (std::size_t j = 0; design.terms == "SEASONAL" && j + 1 < kSeasons; ++j) {
    columns.emplace_back(length, -1.0 / kSeasons);
    for (std::size_t t = j; t < length; t += kSeasons) columns[j][t] += 1.0;
  }
  return columns;
}

}  // namespace

Sample simulated(const Design& design, std::size_t horizon, engine::RandomStream& random) {
  const std::size_t observed = design.rows + design.fittedLag;
  const std::size_t length = kBurnIn + observed + horizon;
  std::vector<double> exogenous;
  if (design.terms == "EXOGENOUS") exogenous = autoregression(0.8, length, random);
  const auto z = components(design, length, exogenous, random);
  Sample sample{{}, {}, knownColumns(design, exogenous, observed + horizon)};
  for (std::size_t i = 0; i < kSeries; ++i) {
    std::vector<double> y(length);
    for (std::size_t t = 0; t < length; ++t) {
      for (std::size_t j = 0; j < kSeries; ++j) y[t] += kMixing[i][j] * z[j][t];
    }
    const auto origin = y.begin() + static_cast<std::ptrdiff_t>(kBurnIn + observed);
    sample.observed.emplace_back(y.begin() + kBurnIn, origin);
    sample.future.emplace_back(origin, y.end());
  }
  return sample;
}

engine::FittedVar fitted(const Sample& sample, std::size_t lag) {
  const std::size_t k = sample.observed.size();
  engine::Matrix z(sample.observed[0].size() - lag, 1 + lag * k + sample.known.size());
  engine::Matrix y(z.rows, k);
  for (std::size_t r = 0; r < z.rows; ++r) {
    std::size_t next = 0;
    z(r, next++) = 1.0;
    for (std::size_t l = 1; l <= lag; ++l) {
      for (std::size_t i = 0; i < k; ++i) z(r, next++) = sample.observed[i][lag + r - l];
    }
    for (const auto& column : sample.known) z(r, next++) = column[lag + r];
    for (std::size_t i = 0; i < k; ++i) y(r, i) = sample.observed[i][lag + r];
  }
  engine::FittedVar fit;
  fit.lag = fit.firstRow = lag;
  fit.inverse = engine::inverseFromCholesky(engine::choleskyFactor(engine::crossProduct(z)).value());
  fit.coefficients = engine::transposed(engine::multiply(fit.inverse, engine::crossProduct(z, y)));
  engine::addScaled(-1.0, engine::multiplyTransposed(z, fit.coefficients), y);
  for (std::size_t i = 0; i < k; ++i) fit.residuals.push_back(engine::columnOf(y, i));
  return fit;
}

}  // namespace bench
