#include <algorithm>
#include <boost/math/distributions/normal.hpp>
#include <cmath>
#include <vector>

#include "engine/arithmetic/moments.h"
#include "engine/arithmetic/plain_units.h"
#include "engine/diagnostics/unit_root_tests.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

std::size_t termCount(UnitRootTerms terms) {
  return terms == UnitRootTerms::constant ? 1 : 2;
}

// The regression of the differences on the rows from x[1 + lags] on.
class Regression {
 public:
  Regression(std::span<const double> x, std::size_t skipped, UnitRootTerms terms)
      : x_(x), first_(1 + skipped), rows_(x.size() - first_), rest_(difference(0)) {
    append(std::vector<double>(rows_, 1.0));
    if (terms == UnitRootTerms::constantAndTrend) {
      std::vector<double> trend(rows_);
      for (std::size_t r = 0; r < rows_; ++r) trend[r] = static_cast<double>(r);
      append(trend);
    }
  }

  void appendLevel() { append(x_.subspan(first_ - 1, rows_)); }
  void appendDifference(std::size_t lag) { append(difference(lag)); }

  // False when a column depends on those before it.
  bool regular() const { return regular_; }
  // Whether the columns explain the differences but for rounding.
  bool explainsAll() const { return !OrthonormalBasis(basis_).append(difference(0)); }
  std::size_t rows() const { return rows_; }
  double residualSumOfSquares() const { return sumOfSquares(rest_); }
  // Of the column appended last.
  double studentT() const {
    const auto degrees = static_cast<double>(rows_) - static_cast<double>(basis_.size());
    return lastCoordinate_ / std::sqrt(residualSumOfSquares() / degrees);
  }

 private:
  std::vector<double> difference(std::size_t lag) const {
    std::vector<double> column(rows_);
    for (std::size_t r = 0; r < rows_; ++r) column[r] = x_[first_ + r - lag] - x_[first_ + r - lag - 1];
    return column;
  }

  void append(std::span<const double> column) {
    regular_ = regular_ && basis_.append(column);
    if (!regular_) return;
    lastCoordinate_ = dotProduct(basis_[basis_.size() - 1], rest_);
    basis_.removeFrom(rest_, basis_.size() - 1);
  }

  std::span<const double> x_;
  std::size_t first_;
  std::size_t rows_;
  std::vector<double> rest_;
  OrthonormalBasis basis_;
  double lastCoordinate_ = 0.0;
  bool regular_ = true;
};

// As many regressors as half of the values, at most: each has a degree of freedom.
std::size_t mostLags(std::size_t length, UnitRootTerms terms) {
  const auto rule = static_cast<std::size_t>(std::ceil(12.0 * std::pow(static_cast<double>(length) / 100.0, 0.25)));
  return std::min(rule, length / 2 - termCount(terms) - 1);
}

std::size_t chooseLags(std::span<const double> x, UnitRootTerms terms) {
  const std::size_t most = mostLags(x.size(), terms);
  Regression regression(x, most, terms);
  regression.appendLevel();
  const auto n = static_cast<double>(regression.rows());
  std::size_t best = 0;
  double smallest = n * std::log(regression.residualSumOfSquares());
  for (std::size_t lag = 1; lag <= most; ++lag) {
    regression.appendDifference(lag);
    if (!regression.regular()) break;
    const double aic = n * std::log(regression.residualSumOfSquares()) + 2.0 * static_cast<double>(lag);
    if (aic < smallest) {
      smallest = aic;
      best = lag;
    }
  }
  return best;
}

// MacKinnon (1994), tables 3 and 4: polynomials whose normal tail is the p-value, one for small and one for large ones.
struct Surface {
  double smallest, between, largest;
  double left[3];
  double right[4];
};
constexpr Surface kConstant{-18.83, -1.61, 2.74, {2.1659, 1.4412, 0.038269}, {1.7339, 0.93202, -0.12745, -0.010368}};
constexpr Surface kTrend{-16.18, -2.89, 0.70, {3.2512, 1.6047, 0.049588}, {2.5261, 0.61654, -0.37956, -0.060285}};

double polynomial(std::span<const double> coefficients, double x) {
  double value = 0.0;
  for (std::size_t i = coefficients.size(); i-- > 0;) value = value * x + coefficients[i];
  return value;
}

}  // namespace

double mackinnonTail(double statistic, UnitRootTerms terms) {
  const Surface& surface = terms == UnitRootTerms::constant ? kConstant : kTrend;
  if (statistic > surface.largest) return 1.0;
  if (statistic < surface.smallest) return 0.0;
  const double z =
      statistic <= surface.between ? polynomial(surface.left, statistic) : polynomial(surface.right, statistic);
  return boost::math::cdf(boost::math::normal_distribution<double>(), z);
}

std::optional<AugmentedDickeyFuller> augmentedDickeyFuller(std::span<const double> x, UnitRootTerms terms) {
  if (x.size() / 2 < termCount(terms) + 1) return std::nullopt;
  const std::vector<double> series = aboutFirst(x);
  const std::size_t lags = chooseLags(series, terms);
  Regression regression(series, lags, terms);
  for (std::size_t lag = 1; lag <= lags; ++lag) regression.appendDifference(lag);
  regression.appendLevel();
  if (!regression.regular() || regression.explainsAll()) return std::nullopt;
  const double t = regression.studentT();
  return AugmentedDickeyFuller{t, mackinnonTail(t, terms), lags, regression.rows()};
}

}  // namespace engine
