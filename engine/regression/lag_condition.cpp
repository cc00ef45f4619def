#include "engine/regression/lag_condition.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "engine/regression/precision_limits.h"

namespace engine {
namespace {

// In standard deviations over the level: values that are equal but for the last bit differ by half of it.
constexpr double kRoundingSpread = 4.4e-16;
// Of a sum of squares: what is left below this share is the rounding of sums in twice the precision.
constexpr double kSmallestShare = 0x1p-64;

// Adds the sizes of one row of a symmetric matrix, given on and right of the diagonal, to the column sums of the matrix
// whose columns, but not yet rows, are scaled. Four sums across the row, so that none waits for the one before.
void addRowSizes(std::span<const double> row, std::size_t i, const std::vector<double>& scales,
                 std::vector<double>& sums) {
  constexpr std::size_t kSums = 4;
  double across[kSums] = {std::abs(row[i]) * scales[i]};
  const auto add = [&](std::size_t j, std::size_t lane) {
    const double size = std::abs(row[j]);
    sums[j] += size * scales[i];
    across[lane] += size * scales[j];
  };
  std::size_t j = i + 1;
  for (; j + kSums <= row.size(); j += kSums) {
    for (std::size_t lane = 0; lane < kSums; ++lane) add(j + lane, lane);
  }
  for (; j < row.size(); ++j) add(j, 0);
  sums[i] += (across[0] + across[1]) + (across[2] + across[3]);
}

// Cross-products about the means, for i <= j.
template <class Real>
class AboutMeans {
 public:
  AboutMeans(const LagData& data, const Planes<Real>& products) : products_(products) {
    if (!data.hasConstant()) return;
    const Real rows(static_cast<double>(data.rowCount()));
    for (std::size_t j = 0; j < products.rows(); ++j) means_.push_back(products.at(0, j) / rows);
  }
  double operator()(std::size_t i, std::size_t j) const {
    if (means_.empty()) return rounded(products_.at(i, j));
    return rounded(products_.at(i, j) - products_.at(0, i) * means_[j]);
  }
  double mean(std::size_t j) const { return means_.empty() ? 0.0 : rounded(means_[j]); }

 private:
  const Planes<Real>& products_;
  std::vector<Real> means_;
};

// `about` and `square`: the regressor's sum of squares about its mean and about its centre.
bool hasSpread(const LagData& data, std::size_t j, double mean, double about, double square) {
  if (!data.hasConstant()) return about > 0.0;
  const Placement& placement = data.placement(j);
  const double level = std::abs(std::ldexp(placement.center, -placement.exponent) + mean);
  const double deviation = std::sqrt(about / static_cast<double>(data.rowCount()));
  return about > kSmallestShare * square && deviation > kRoundingSpread * level;
}

}  // namespace

// The column sums of the first regressors grow with each further one.
template <class Real>
LagConditionNumbers::LagConditionNumbers(const LagData& data, const Planes<Real>& crossProducts)
    : first_(data.hasConstant() ? 1 : 0),
      withoutSpread_(crossProducts.rows()),
      scales_(crossProducts.rows()),
      norms_(crossProducts.rows(), 1.0),
      leftByMeans_(crossProducts.rows(), 1.0) {
  std::vector<double> sums(crossProducts.rows());
  const AboutMeans<Real> aboutMeans(data, crossProducts);
  double norm = 0.0;
  double left = 1.0;
  for (std::size_t j = first_; j < crossProducts.rows(); ++j) {
    const double squares = aboutMeans(j, j);
    const double aboutCenter = rounded(crossProducts.at(j, j));
    if (!hasSpread(data, j, aboutMeans.mean(j), squares, aboutCenter)) {
      withoutSpread_ = j;
      return;
    }
    scales_[j] = std::sqrt(squares);
    left = std::min(left, squares / aboutCenter);
    sums[j] = 1.0;
    for (std::size_t i = first_; i < j; ++i) {
      const double size = std::abs(aboutMeans(i, j)) / (scales_[i] * scales_[j]);
      sums[i] += size;
      sums[j] += size;
      norm = std::max(norm, sums[i]);
    }
    norms_[j] = norm = std::max(norm, sums[j]);
    leftByMeans_[j] = left;
  }
}

// S^-1 is, but for the scales, the block of (Z'Z)^-1 that belongs to its regressors.
template <class Real>
LagCondition LagConditionNumbers::of(const NestedRegression<Real>& regression) const {
  const std::size_t count = regression.regressorCount();
  if (count <= first_) return {};
  if (count > withoutSpread_) return {.reciprocal = 0.0, .leftByMeans = 0.0};
  std::vector<double> sums(count);
  for (std::size_t i = first_; i < count; ++i) addRowSizes(regression.inverseRow(i), i, scales_, sums);
  double inverseNorm = 0.0;
  for (std::size_t j = first_; j < count; ++j) inverseNorm = std::max(inverseNorm, sums[j] * scales_[j]);
  return {.reciprocal = 1.0 / (norms_[count - 1] * inverseNorm), .leftByMeans = leftByMeans_[count - 1]};
}

bool isSingularCondition(double reciprocal, std::size_t k) {
  return !(reciprocal >= static_cast<double>(k) * kLeastCondition);
}

template LagConditionNumbers::LagConditionNumbers(const LagData&, const Planes<double>&);
template LagConditionNumbers::LagConditionNumbers(const LagData&, const Planes<DoubleDouble>&);
template LagCondition LagConditionNumbers::of(const NestedRegression<double>&) const;
template LagCondition LagConditionNumbers::of(const NestedRegression<DoubleDouble>&) const;

}  // namespace engine
