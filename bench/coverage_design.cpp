#include "bench/coverage_design.h"

#include <cmath>

#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/lu.h"
#include "engine/regression/var_estimation.h"

namespace bench {
namespace {

constexpr std::size_t kMostSeries = 3;
constexpr std::size_t kBurnIn = 300;
constexpr double kOtherRoots[kMostSeries][2] = {
    {0.0, 0.3}, {0.7, -0.3}, {0.5, 0.2}};  // the first pair holds the design's root
constexpr double kMixing[kMostSeries][kMostSeries] = {{1.0, 0.4, -0.3}, {0.5, 1.0, 0.2}, {-0.4, 0.3, 1.0}};
constexpr double kShocks[kMostSeries][kMostSeries] = {{1.0, 0.0, 0.0}, {0.5, 0.87, 0.0}, {0.3, 0.3, 0.9}};
constexpr std::size_t kSeasons = 4;

// One series of shocks; GARCH(1, 1) with .15 and .8.
class ShockSource {
 public:
  explicit ShockSource(Errors errors) : errors_(errors) {}

  double next(engine::RandomStream& random) {
    const double z = random.normal();
    if (errors_ == Errors::normal) return z;
    if (errors_ == Errors::garch) {
      variance_ = 0.05 + 0.15 * last_ * last_ + 0.8 * variance_;
      return last_ = std::sqrt(variance_) * z;
    }
    double chiSquared = 0.0;
    for (int i = 0; i < 5; ++i) chiSquared += std::pow(random.normal(), 2);
    return z / std::sqrt(chiSquared / 3.0);
  }

 private:
  Errors errors_;
  double variance_ = 1.0;
  double last_ = 1.0;
};

// y = (r1 + r2) y(-1) - r1 r2 y(-2) has the roots r1 and r2.
double firstLag(const Design& design, std::size_t i) {
  return (i == 0 ? design.root : kOtherRoots[i][0]) + kOtherRoots[i][1];
}
double secondLag(const Design& design, std::size_t i) {
  return -(i == 0 ? design.root : kOtherRoots[i][0]) * kOtherRoots[i][1];
}

// Independent AR(2) processes with correlated shocks; an exogenous series enters them all.
std::vector<std::vector<double>> components(const Design& design, std::size_t length,
                                            const std::vector<double>& exogenous, engine::RandomStream& random) {
  std::vector<std::vector<double>> z(design.series, std::vector<double>(length));
  std::vector<ShockSource> sources(design.series, ShockSource(design.errors));
  std::vector<double> shocks(design.series);
  for (std::size_t t = 2; t < length; ++t) {
    for (std::size_t i = 0; i < design.series; ++i) shocks[i] = sources[i].next(random);
    for (std::size_t i = 0; i < design.series; ++i) {
      z[i][t] = firstLag(design, i) * z[i][t - 1] + secondLag(design, i) * z[i][t - 2];
      for (std::size_t j = 0; j <= i; ++j) z[i][t] += kShocks[i][j] * shocks[j];
      if (!exogenous.empty()) z[i][t] += exogenous[t];
    }
  }
  return z;
}

engine::Matrix corner(const double (&table)[kMostSeries][kMostSeries], std::size_t size) {
  engine::Matrix result(size, size);
  for (std::size_t i = 0; i < size; ++i) {
    for (std::size_t j = 0; j < size; ++j) result(i, j) = table[i][j];
  }
  return result;
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

TrueModel trueModel(const Design& design) {
  const engine::Matrix mixing = corner(kMixing, design.series);
  engine::Matrix unmixing;
  engine::invertMatrix(mixing, unmixing);
  engine::Matrix diagonals[2] = {engine::Matrix(design.series, design.series),
                                 engine::Matrix(design.series, design.series)};
  for (std::size_t i = 0; i < design.series; ++i) {
    diagonals[0](i, i) = firstLag(design, i);
    diagonals[1](i, i) = secondLag(design, i);
  }
  TrueModel model;
  for (const engine::Matrix& diagonal : diagonals) {
    model.lags.push_back(engine::multiply(engine::multiply(mixing, diagonal), unmixing));
  }
  const engine::Matrix root = engine::multiply(mixing, corner(kShocks, design.series));
  model.covariance = engine::multiplyTransposed(root, root);
  return model;
}

Sample simulated(const Design& design, std::size_t horizon, engine::RandomStream& random) {
  const std::size_t observed = design.rows + design.fittedLag;
  const std::size_t length = kBurnIn + observed + horizon;
  std::vector<double> exogenous;
  if (design.terms == "EXOGENOUS") exogenous = autoregression(0.8, length, random);
  const auto z = components(design, length, exogenous, random);
  Sample sample{{}, {}, knownColumns(design, exogenous, observed + horizon)};
  for (std::size_t i = 0; i < design.series; ++i) {
    std::vector<double> y(length);
    for (std::size_t t = 0; t < length; ++t) {
      for (std::size_t j = 0; j < design.series; ++j) y[t] += kMixing[i][j] * z[j][t];
    }
    const auto origin = y.begin() + static_cast<std::ptrdiff_t>(kBurnIn + observed);
    sample.observed.emplace_back(y.begin() + kBurnIn, origin);
    sample.future.emplace_back(origin, y.end());
  }
  return sample;
}

engine::FittedVar fitted(const Sample& sample, std::size_t lag) {
  std::vector<std::vector<double>> known = sample.known;
  for (auto& column : known) column.resize(sample.observed.front().size());
  const auto p = static_cast<std::int32_t>(lag);
  return engine::fittedVar(
      engine::estimateVar({sample.observed, known}, {.minLag = p, .maxLag = p, .fullInverse = true}), p);
}

}  // namespace bench
