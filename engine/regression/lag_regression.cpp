#include "engine/regression/lag_regression.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/regression/precision_limits.h"

namespace engine {
namespace {

bool isSmall(const LagData& data) {
  return static_cast<double>(data.rowCount()) * static_cast<double>(data.seriesCount()) *
             static_cast<double>(data.regressorCount(data.maxLag())) <=
         kSmallWork;
}

// Whether residuals computed in doubles keep their digits. Placed values are at most 1, so that the coefficients are
// bounds of the terms.
template <class Real>
bool residualsKeepDigits(const LagData& data, const Planes<Real>& coefficients, std::size_t count,
                         const ResidualMoments& moments) {
  for (std::size_t i = 0; i < data.seriesCount(); ++i) {
    double terms = 1.0;
    for (std::size_t j = 0; j < count; ++j) terms += std::abs(rounded(coefficients.at(j, i)));
    const double deviation = std::sqrt(moments.products(i, i) / static_cast<double>(moments.count));
    if (!(std::ldexp(deviation, -data.endogenous(i).placement().exponent) >= kLeastResidualInDoubles * terms)) {
      return false;
    }
  }
  return true;
}

Planes<double> roundedPlanes(const Planes<DoubleDouble>& source, std::size_t rows, std::size_t columns) {
  Planes<double> result(rows, columns);
  for (std::size_t i = 0; i < rows; ++i) {
    for (std::size_t j = 0; j < columns; ++j) result.set(i, j, rounded(source.at(i, j)));
  }
  return result;
}

// In doubles if these keep the digits: over long series that is much faster.
LagResiduals residualsOf(const LagData& data, std::size_t lag, const Planes<DoubleDouble>& coefficients) {
  if (!isSmall(data)) {
    const std::size_t count = data.regressorCount(lag);
    LagResiduals plain = lagResiduals(data, lag, roundedPlanes(coefficients, count, data.seriesCount()));
    if (residualsKeepDigits(data, coefficients, count, plain.moments)) return plain;
  }
  return lagResiduals(data, lag, coefficients);
}

template <class Real>
void putCoefficients(const LagData& data, std::size_t lag, const NestedRegression<Real>& regression, LagFit& fit) {
  for (std::size_t i = 0; i < data.seriesCount(); ++i) {
    fit.coefficients.push_back(originalCoefficients(data, lag, i, regression));
  }
}

void putResiduals(LagResiduals residuals, LagFit& fit) {
  fit.residuals = std::move(residuals.residuals);
  fit.moments = std::move(residuals.moments);
}

}  // namespace

template <class Real>
LagRegression::Sums<Real>::Sums(const LagData& data, LagCrossProducts<Real> crossProducts)
    : targets(std::move(crossProducts.targets)),
      conditions(data, crossProducts.products),
      regression(std::move(crossProducts.products), crossProducts.targetColumn, data.seriesCount()) {}

LagRegression::LagRegression(const SeriesList& endogenous, const SeriesList& exogenous, const LagShape& shape)
    : data_(endogenous, exogenous, shape) {
  if (!isSmall(data_)) plain_ = std::make_unique<Sums<double>>(data_, lagCrossProducts<double>(data_));
}

LagFit LagRegression::fit(std::size_t lag, bool withResiduals) {
  lag_ = lag;
  LagFit fit;
  if (plain_ && fitPlain(lag, withResiduals, fit)) return fit;
  plain_.reset();
  return fitExtended(lag);
}

// False when doubles have too few digits.
bool LagRegression::fitPlain(std::size_t lag, bool withResiduals, LagFit& fit) {
  NestedRegression<double>& regression = plain_->regression;
  if (!regression.extendTo(data_.regressorCount(lag))) return false;
  const LagCondition condition = plain_->conditions.of(regression);
  if (!(condition.reciprocal * condition.leftByMeans >= kLeastConditionInDoubles)) return false;
  fit.reciprocalCondition = condition.reciprocal;
  if (!withResiduals && putMomentsFromProducts(fit)) {
    putCoefficients(data_, lag, regression, fit);
    return true;
  }
  putResiduals(lagResiduals(data_, lag, regression.coefficients()), fit);
  if (!residualsKeepDigits(data_, regression.coefficients(), data_.regressorCount(lag), fit.moments)) return false;
  putCoefficients(data_, lag, regression, fit);
  return true;
}

// E'E = Y'Y - Y'Z (Z'Z)^-1 Z'Y. False, with nothing put, when too little is left of some Y'Y(i, i), when the residuals
// are so correlated that their determinant has fewer digits, or when the products leave the range of doubles in the
// units of the series.
bool LagRegression::putMomentsFromProducts(LagFit& fit) const {
  const std::size_t count = data_.seriesCount();
  ResidualMoments moments{Matrix(count, count), std::vector<double>(count), data_.rowCount()};
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t j = 0; j < count; ++j) {
      const double rest = plain_->targets(i, j) - plain_->regression.explained().at(i, j);
      if (i == j && !(rest >= kLeastShareOfProducts * plain_->targets(i, i))) return false;
      moments.products(i, j) =
          std::ldexp(rest, data_.endogenous(i).placement().exponent + data_.endogenous(j).placement().exponent);
    }
    if (!std::isnormal(moments.products(i, i))) return false;
  }
  if (correlationCondition(residualCovarianceMatrix(moments)) < kLeastConditionInDoubles) return false;
  fit.moments = std::move(moments);
  return true;
}

LagFit LagRegression::fitExtended(std::size_t lag) {
  if (!extended_) extended_ = std::make_unique<Sums<DoubleDouble>>(data_, lagCrossProducts<DoubleDouble>(data_));
  NestedRegression<DoubleDouble>& regression = extended_->regression;
  LagFit fit;
  const bool independent = regression.extendTo(data_.regressorCount(lag));
  fit.reciprocalCondition = independent ? extended_->conditions.of(regression).reciprocal : 0.0;
  fit.singular = isSingularCondition(fit.reciprocalCondition, data_.regressorCount(lag));
  if (fit.singular) return fit;
  putResiduals(residualsOf(data_, lag, regression.coefficients()), fit);
  putCoefficients(data_, lag, regression, fit);
  return fit;
}

InverseDiagonal LagRegression::inverseDiagonal() const {
  return plain_ ? originalInverseDiagonal(data_, lag_, plain_->regression)
                : originalInverseDiagonal(data_, lag_, extended_->regression);
}

Matrix LagRegression::inverse() const {
  return plain_ ? originalInverse(data_, lag_, plain_->regression)
                : originalInverse(data_, lag_, extended_->regression);
}

}  // namespace engine
