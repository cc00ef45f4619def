// Vector autoregressions of several lag orders, fitted by ordinary least squares: the one entry for whoever wants one.
//
// Selection, inference, residuals and moments are read from what it returns.

#pragma once

#include <cstdint>
#include <optional>

#include "engine/regression/fitted_var.h"
#include "engine/regression/lag_data.h"
#include "engine/regression/lag_selection.h"
#include "engine/regression/original_units.h"
#include "engine/regression/residual_covariance.h"

namespace engine {

// K endogenous series and any number of known columns (trend, seasons, exogenous series at any lag), T values each;
// what a column holds before the first row of the sample is not read.
struct VarSeries {
  const SeriesList& endogenous;
  const SeriesList& exogenous;
};

enum class KeptResiduals { all, last, none };

struct VarOptions {
  std::int32_t minLag = 1;  // 0 or more
  std::int32_t maxLag = 1;
  bool constant = true;
  // All lags are fitted on the rows t = firstRow .. T - 1; maxLag unless given, and never below it.
  std::optional<std::int64_t> firstRow = {};
  // Whether the criteria count the known columns' coefficients among the parameters.
  bool countExogenous = true;
  // Whose residuals are kept, T K numbers a lag; a lag without them is judged by its cross-products, which is faster.
  KeptResiduals residuals = KeptResiduals::all;
  bool inferAllLags = true;  // what standard errors are made of: of all lags, or of the last one alone
  bool fullInverse = false;  // (Z'Z)^-1, not only its diagonal
  // Whether a model is handed over whose residuals are collinear across the equations: some series is then predicted
  // from the others without error.
  bool allowSingularCovariance = false;
};

// Why no lag from `lag` on was fitted.
struct FitError {
  enum class Reason {
    insufficientObservations,  // n <= m
    unevenSeries,              // no endogenous series, or some series has another length than the first
    singularRegressors,        // collinear, see lag_condition.h
    singularCovariance,        // residuals collinear across the equations, in doubles
    outOfRange                 // a value, coefficient, standard error or variance is not finite or below 2.2e-308
  };
  Reason reason = Reason::unevenSeries;
  std::int32_t lag = 0;
  std::int64_t rows = 0;        // n, may be negative
  std::int64_t regressors = 0;  // m at that lag
};

// One lag order p. m coefficients an equation: the constant if there is one, lag 1 of series 1..K, .., lag p of series
// 1..K, then the known columns.
struct LagEstimate {
  std::int32_t lag = 0;
  double reciprocalCondition = 1.0;  // of the regressors, see lag_condition.h
  SeriesList coefficients;           // K of m
  SeriesList residuals;              // K of n, actual minus fitted; empty unless kept
  ResidualMoments moments;
  SeriesList covariance;        // V, K x K: divisor n, means subtracted when there is a constant
  double determinant = 0.0;     // of V, as computed: 0 or infinite where it leaves the range of doubles
  double logDeterminant = 0.0;  // right in any units; infinite where V is not positive definite in doubles
  double logLikelihood = 0.0;
  CriterionValues criteria{};
  InverseDiagonal inverseDiagonal;  // of (Z'Z)^-1
  Matrix inverse;                   // (Z'Z)^-1, m x m; empty unless asked for
};

struct VarEstimation {
  std::size_t equations = 0;  // K
  std::size_t exogenous = 0;
  std::int64_t firstRow = 0;
  std::int64_t rows = 0;  // n
  bool constant = true;
  std::vector<LagEstimate> lags;  // ascending; those before the error, if there is one
  std::optional<FitError> error;
};

// Fits the lags minLag .. maxLag in rising order and stops at the first that cannot be fitted.
VarEstimation estimateVar(const VarSeries& series, const VarOptions& options);

// The estimate of `lag`, or null when it was not fitted.
const LagEstimate* findLag(const VarEstimation& estimation, std::int32_t lag);

// The lag of the smallest value among those from `minLag` on, the lowest among equals; at least one must be fitted.
std::int32_t selectedLag(const VarEstimation& estimation, Criterion criterion, std::int32_t minLag = 0);

// Twice what the likelihood rose by from the lag below (-1 before the first), and the degrees of freedom K^2 of its
// chi-squared distribution.
struct LikelihoodRatio {
  double statistic = 0.0;
  std::int64_t degreesOfFreedom = 0;
};
std::optional<LikelihoodRatio> likelihoodRatio(const VarEstimation& estimation, std::int32_t lag);

// The hand-over to what is made of a fitted model; `lag` must be fitted, with residuals and the full inverse.
FittedVar fittedVar(VarEstimation estimation, std::int32_t lag);

}  // namespace engine
