#include "engine/regression/var_estimation.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <limits>
#include <utility>

#include "engine/regression/lag_regression.h"

namespace engine {
namespace {

constexpr double kSmallest = std::numeric_limits<double>::min();

// Finite and with all its digits.
bool inRange(double value) {
  return value == 0.0 || std::isnormal(value);
}

bool seriesAreAligned(const VarSeries& series) {
  if (series.endogenous.empty()) return false;
  const auto aligned = [&](const auto& one) { return one.size() == series.endogenous.front().size(); };
  return std::ranges::all_of(series.endogenous, aligned) && std::ranges::all_of(series.exogenous, aligned);
}

ModelSize sizeOf(const VarEstimation& estimation, const VarOptions& options, std::int32_t lag) {
  const auto equations = static_cast<std::int64_t>(estimation.equations);
  const std::int64_t regressors = regressorCount(estimation.equations, estimation.exogenous, lag, options.constant);
  const std::int64_t counted =
      options.countExogenous ? regressors : regressors - static_cast<std::int64_t>(estimation.exogenous);
  return {.equations = equations,
          .rows = estimation.rows,
          .regressors = regressors,
          .parameters = static_cast<double>(equations * counted)};
}

// Whether a variance is 0 though residuals are not.
bool vanishes(const LagEstimate& estimate, std::size_t i) {
  return estimate.covariance[i][i] == 0.0 &&
         std::ranges::any_of(estimate.residuals[i], [](double residual) { return residual != 0.0; });
}

// Coefficients, variances and standard errors: units far apart leave the range of doubles.
bool isInRange(const LagEstimate& estimate) {
  double smallest = std::numeric_limits<double>::infinity();
  double largest = 0.0;
  for (std::size_t i = 0; i < estimate.coefficients.size(); ++i) {
    if (!std::ranges::all_of(estimate.coefficients[i], inRange)) return false;
    if (!inRange(estimate.covariance[i][i]) || vanishes(estimate, i)) return false;
    smallest = std::min(smallest, estimate.covariance[i][i]);
    largest = std::max(largest, estimate.covariance[i][i]);
  }
  for (std::size_t j = 0; j < estimate.inverseDiagonal.values.size(); ++j) {
    if (!inRange(standardError(smallest, estimate.inverseDiagonal, j))) return false;
    if (!inRange(standardError(largest, estimate.inverseDiagonal, j))) return false;
    if (estimate.inverse.rows > 0 && !inRange(estimate.inverse(j, j))) return false;
  }
  return std::ranges::all_of(estimate.inverse.values, [](double value) { return std::isfinite(value); });
}

// Moves everything but the numbers that depend on the size of the model.
LagEstimate estimateOf(LagFit fit, std::int32_t lag) {
  LagEstimate estimate;
  estimate.lag = lag;
  estimate.reciprocalCondition = fit.reciprocalCondition;
  estimate.coefficients = std::move(fit.coefficients);
  estimate.residuals = std::move(fit.residuals);
  estimate.moments = std::move(fit.moments);
  return estimate;
}

void judgeLikelihood(const ModelSize& size, LagEstimate& estimate) {
  estimate.covariance = residualCovarianceMatrix(estimate.moments);
  const CovarianceDeterminant determinant = covarianceDeterminant(estimate.covariance);
  estimate.determinant = determinant.value;
  estimate.logDeterminant = determinant.logarithm;
  estimate.logLikelihood = logLikelihood(estimate.logDeterminant, size);
  estimate.criteria = criterionValues(estimate.logLikelihood, estimate.logDeterminant, size);
}

// The largest lag with fewer regressors than rows, at most options.maxLag; below 0 when there is none.
std::int32_t largestFittable(const VarEstimation& estimation, const VarOptions& options) {
  std::int32_t lag = options.maxLag;
  while (lag >= 0 && estimation.rows <= sizeOf(estimation, options, lag).regressors) --lag;
  return lag;
}

bool keepsResiduals(const VarOptions& options, bool isLast) {
  return options.residuals == KeptResiduals::all || (options.residuals == KeptResiduals::last && isLast);
}

void fitLags(const VarSeries& series, const VarOptions& options, std::int32_t lastLag, VarEstimation& result) {
  const auto fail = [&](FitError::Reason reason, std::int32_t lag) {
    result.error = FitError{reason, lag, result.rows, sizeOf(result, options, lag).regressors};
  };
  LagRegression regression(series.endogenous, series.exogenous,
                           {.maxLag = static_cast<std::size_t>(lastLag),
                            .firstRow = static_cast<std::size_t>(result.firstRow),
                            .constant = options.constant});
  if (!regression.data().isFinite()) return fail(FitError::Reason::outOfRange, options.minLag);
  for (std::int32_t lag = options.minLag; lag <= lastLag; ++lag) {
    const bool keeps = keepsResiduals(options, lag == lastLag);
    LagFit fit = regression.fit(static_cast<std::size_t>(lag), keeps);
    if (fit.singular) return fail(FitError::Reason::singularRegressors, lag);
    LagEstimate estimate = estimateOf(std::move(fit), lag);
    if (options.inferAllLags || lag == lastLag) {
      estimate.inverseDiagonal = regression.inverseDiagonal();
      if (options.fullInverse) estimate.inverse = regression.inverse();
    }
    judgeLikelihood(sizeOf(result, options, lag), estimate);
    const bool callerRefuses = options.allowSingularCovariance && std::abs(estimate.determinant) < kSmallest;
    if (!callerRefuses && !isInRange(estimate)) return fail(FitError::Reason::outOfRange, lag);
    if (!options.allowSingularCovariance && isSingularCovariance(estimate.covariance)) {
      return fail(FitError::Reason::singularCovariance, lag);
    }
    if (!keeps) estimate.residuals.clear();
    result.lags.push_back(std::move(estimate));
  }
  if (lastLag < options.maxLag) fail(FitError::Reason::insufficientObservations, lastLag + 1);
}

}  // namespace

VarEstimation estimateVar(const VarSeries& series, const VarOptions& options) {
  VarEstimation result;
  result.equations = series.endogenous.size();
  result.exogenous = series.exogenous.size();
  result.constant = options.constant;
  result.firstRow = std::max<std::int64_t>(options.firstRow.value_or(0), options.maxLag);
  if (options.minLag > options.maxLag) return result;
  const std::int64_t length = series.endogenous.empty() ? 0 : std::ssize(series.endogenous.front());
  result.rows = length - result.firstRow;
  const std::int32_t lastLag = largestFittable(result, options);
  if (series.endogenous.empty() || (lastLag >= options.minLag && !seriesAreAligned(series))) {
    result.error = FitError{FitError::Reason::unevenSeries, options.minLag, result.rows, 0};
  } else if (lastLag < options.minLag) {
    result.error = FitError{FitError::Reason::insufficientObservations, options.minLag, result.rows,
                            sizeOf(result, options, options.minLag).regressors};
  } else {
    fitLags(series, options, lastLag, result);
  }
  return result;
}

const LagEstimate* findLag(const VarEstimation& estimation, std::int32_t lag) {
  const auto found = std::ranges::find(estimation.lags, lag, &LagEstimate::lag);
  return found == estimation.lags.end() ? nullptr : &*found;
}

std::int32_t selectedLag(const VarEstimation& estimation, Criterion criterion, std::int32_t minLag) {
  std::vector<double> values;
  std::vector<std::int32_t> lags;
  for (const LagEstimate& estimate : estimation.lags) {
    if (estimate.lag < minLag) continue;
    values.push_back(valueOf(criterion, estimate.criteria));
    lags.push_back(estimate.lag);
  }
  assert(!lags.empty());
  return lags[placeOfSmallest(values)];
}

std::optional<LikelihoodRatio> likelihoodRatio(const VarEstimation& estimation, std::int32_t lag) {
  const LagEstimate* larger = findLag(estimation, lag);
  const LagEstimate* smaller = findLag(estimation, lag - 1);
  if (larger == nullptr || smaller == nullptr) return std::nullopt;
  const auto equations = static_cast<std::int64_t>(estimation.equations);
  return LikelihoodRatio{2.0 * (larger->logLikelihood - smaller->logLikelihood), equations * equations};
}

FittedVar fittedVar(VarEstimation estimation, std::int32_t lag) {
  const auto estimate = std::ranges::find(estimation.lags, lag, &LagEstimate::lag);
  assert(estimate != estimation.lags.end() && !estimate->residuals.empty() && estimate->inverse.rows > 0);
  FittedVar result{.lag = static_cast<std::size_t>(lag),
                   .firstRow = static_cast<std::size_t>(estimation.firstRow),
                   .constant = estimation.constant,
                   .coefficients = Matrix(estimation.equations, estimate->coefficients.front().size()),
                   .residuals = std::move(estimate->residuals),
                   .inverse = std::move(estimate->inverse)};
  for (std::size_t i = 0; i < estimation.equations; ++i) {
    std::ranges::copy(estimate->coefficients[i], result.coefficients.row(i).begin());
  }
  return result;
}

}  // namespace engine
