#include "engine/regression/lag_regression.h"

#include <utility>

#include "engine/linear_algebra/condition.h"
#include "engine/linear_algebra/lu.h"

namespace engine {
namespace {

// Centred regressors: below this, a computation in doubles leaves fewer than about 12 digits.
constexpr double kEnoughDigits = 1e-4;
// Terms in the first block row of cross-products: up to here twice the precision costs a few milliseconds at most, and
// every digit is had for that.
constexpr double kSmallWork = 3e5;
// Original regressors: below this, the pivots and the condition number of X'X itself are looked at.
constexpr double kSuspicious = 1e-10;

bool isSmall(const LagData& data) {
  return static_cast<double>(data.rowCount()) * static_cast<double>(data.seriesCount()) *
             static_cast<double>(data.regressorCount(data.maxLag())) <=
         kSmallWork;
}

// Where regressor j of LagData's order stands among the coefficients of an equation.
std::size_t coefficientIndex(const LagData& data, std::size_t lag, std::size_t j) {
  if (j == 0) return 0;
  const std::size_t exogenous = data.exogenousCount();
  return j <= exogenous ? lag * data.seriesCount() + j : j - exogenous;
}

// X'X of the original regressors in the order of the coefficients.
Matrix originalCrossProducts(const LagData& data, const Planes<DoubleDouble>& centered, std::size_t lag) {
  const std::size_t count = data.regressorCount(lag);
  Matrix result(count, count);
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = i; j < count; ++j) {
      const std::size_t row = coefficientIndex(data, lag, i);
      const std::size_t column = coefficientIndex(data, lag, j);
      result(row, column) = result(column, row) = rounded(originalCrossProduct(data, centered, i, j));
    }
  }
  return result;
}

// From the coefficients of the centred regression: y - cy = b0 + sum of b(j) (x(j) - c(j)).
template <class Real>
std::vector<double> originalCoefficients(const LagData& data, std::size_t lag, std::size_t equation,
                                         const Planes<Real>& centered) {
  const std::size_t count = data.regressorCount(lag);
  std::vector<double> result(count);
  DoubleDouble constant = DoubleDouble(data.endogenousCenter(equation)) + inTwice(centered.at(0, equation));
  for (std::size_t j = 1; j < count; ++j) {
    const Real value = centered.at(j, equation);
    constant = constant - inTwice(value) * DoubleDouble(data.regressorCenter(j));
    result[coefficientIndex(data, lag, j)] = rounded(value);
  }
  result[0] = rounded(constant);
  return result;
}

template <class Real>
Planes<double> roundedPlanes(const Planes<Real>& source, std::size_t rows, std::size_t columns) {
  Planes<double> result(rows, columns);
  for (std::size_t i = 0; i < rows; ++i) {
    for (std::size_t j = 0; j < columns; ++j) result.set(i, j, rounded(source.at(i, j)));
  }
  return result;
}

template <class Real>
std::vector<double> originalInverseDiagonal(const LagData& data, std::size_t lag,
                                            const NestedRegression<Real>& regression) {
  std::vector<double> diagonal(regression.regressorCount());
  diagonal[0] = rounded(originalConstantRow(data, regression)[0]);
  for (std::size_t j = 1; j < diagonal.size(); ++j) {
    diagonal[coefficientIndex(data, lag, j)] = rounded(regression.inverse(j, j));
  }
  return diagonal;
}

}  // namespace

template <class Real>
LagRegression::Sums<Real>::Sums(const LagData& data, LagCrossProducts<Real> crossProducts)
    : conditions(data, crossProducts.products),
      regression(std::move(crossProducts.products), crossProducts.targetColumn, data.seriesCount()) {}

LagRegression::LagRegression(const SeriesList& endogenous, const SeriesList& exogenous, std::int32_t maxLag)
    : data_(endogenous, exogenous, maxLag) {
  if (!isSmall(data_)) {
    LagCrossProducts<double> crossProducts = lagCrossProducts<double>(data_);
    if (crossProducts.digitsKept) plain_ = std::make_unique<Sums<double>>(data_, std::move(crossProducts));
  }
  if (!plain_) startExtended();
}

bool LagRegression::extendPlain(std::size_t lag) {
  if (!plain_->regression.extendTo(data_.regressorCount(lag))) return false;
  conditions_ = plain_->conditions.of(data_, plain_->regression);
  return conditions_.centered >= kEnoughDigits;
}

void LagRegression::startExtended() {
  plain_.reset();
  LagCrossProducts<DoubleDouble> crossProducts = lagCrossProducts<DoubleDouble>(data_);
  extendedProducts_ = crossProducts.products;
  extended_ = std::make_unique<Sums<DoubleDouble>>(data_, std::move(crossProducts));
}

bool LagRegression::extendExtended(std::size_t lag) {
  if (!extended_->regression.extendTo(data_.regressorCount(lag))) return false;
  conditions_ = extended_->conditions.of(data_, extended_->regression);
  return true;
}

// The reciprocal condition number from the LU factorisation of X'X, which rounds as doubles do; nothing for an exactly
// zero pivot.
std::optional<double> LagRegression::judgeByPivots(std::size_t lag) const {
  const Matrix crossProducts =
      originalCrossProducts(data_, extended_ ? extendedProducts_ : lagCrossProducts<DoubleDouble>(data_).products, lag);
  Matrix inverse;
  if (!invertMatrix(crossProducts, inverse)) return std::nullopt;
  return reciprocalCondition(crossProducts, inverse);
}

std::optional<LagFit> LagRegression::fit(std::int32_t lag) {
  lag_ = static_cast<std::size_t>(lag);
  if (plain_ && !extendPlain(lag_)) startExtended();
  const bool independent = plain_ || extendExtended(lag_);
  if (independent && conditions_.original >= kSuspicious) return solution(lag_);
  const std::optional<double> judged = judgeByPivots(lag_);
  if (!judged) return std::nullopt;
  conditions_.original = independent ? *judged : 0.0;
  const bool singular = classifyCondition(conditions_.original, data_.regressorCount(lag_)) == Conditioning::singular;
  if (singular)
    return LagFit{.reciprocalCondition = conditions_.original, .coefficients = {}, .residuals = {}, .moments = {}};
  return solution(lag_);
}

LagFit LagRegression::solution(std::size_t lag) const {
  LagFit fit;
  fit.reciprocalCondition = conditions_.original;
  const auto solve = [&](const auto& regression) {
    for (std::size_t i = 0; i < data_.seriesCount(); ++i) {
      fit.coefficients.push_back(originalCoefficients(data_, lag, i, regression.coefficients()));
    }
    return lagResiduals(data_, lag,
                        roundedPlanes(regression.coefficients(), data_.regressorCount(lag), data_.seriesCount()));
  };
  LagResiduals computed = plain_ ? solve(plain_->regression) : solve(extended_->regression);
  fit.residuals = std::move(computed.residuals);
  fit.moments = std::move(computed.moments);
  return fit;
}

std::vector<double> LagRegression::inverseDiagonal() const {
  return plain_ ? originalInverseDiagonal(data_, lag_, plain_->regression)
                : originalInverseDiagonal(data_, lag_, extended_->regression);
}

}  // namespace engine
