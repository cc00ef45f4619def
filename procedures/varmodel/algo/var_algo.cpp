#include "procedures/varmodel/algo/var_algo.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iostream>
#include <set>
#include <span>
#include <sstream>
#include <utility>

#include "engine/regression/residual_covariance.h"
#include "procedures/common/trace.h"
#include "procedures/varmodel/algo/overall_lag.h"
#include "procedures/varmodel/syntax/command_identity.h"

namespace varmodel {
namespace {

constexpr const char* kSingularCovariance = "Covariance matrix is singular";
constexpr const char* kSingularRegressors =
    "Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity";
constexpr const char* kInsufficientObservations =
    "Insufficient observations: The number of effective observations must exceed the number of parameters";

constexpr const char* kOutOfRange =
    "The model cannot be computed: some values are too large or too small. Rescale the series that hold them.";

// One line that tells which outputs belong to which lag; without it the tables of such a run mislead.
void warnOfSmallerLag(std::int32_t selected, std::int32_t maxLag) {
  std::cerr << "Warning: VARAlgo::estimateVARWithLags - The selected lag " << selected << " is below MAXLAG " << maxLag
            << ": parameters, fitted values and saved predicted values are those of lag " << maxLag
            << "; residuals, their tests and covariance, and forecasts are those of lag " << selected
            << ". R Square compares rows of different length, and MSE, RMSE, MAE and MAPE stay 0.\n";
}

// Two or three criteria that all choose another lag leave the decision to the log-likelihood, which no table tells.
void warnOfDisagreement(const LagChoice& choice, CriterionSwitches enabled) {
  std::ostringstream chosen;
  std::set<std::int32_t> lags;
  int criteria = 0;
  const auto add = [&](bool isEnabled, const char* name, std::int32_t lag) {
    if (!isEnabled) return;
    chosen << (criteria++ == 0 ? "" : ", ") << name << " chose lag " << lag;
    lags.insert(lag);
  };
  add(enabled.aic, "AIC", choice.aic);
  add(enabled.bic, "BIC", choice.bic);
  add(enabled.hqic, "HQIC", choice.hqic);
  if (criteria < 2 || std::ssize(lags) < criteria) return;
  std::cerr << "Warning: VARAlgo::selectOptimalLag - The criteria disagree (" << chosen.str()
            << "): the largest log-likelihood decided for lag " << choice.overall << ".\n";
}

void setOnlySeries(std::vector<std::vector<double>>& field, std::vector<double> series) {
  field.clear();
  field.push_back(std::move(series));
}

// Actual minus residual, over the last rows of `actual`.
std::vector<double> fittedValues(std::span<const double> actual, std::span<const double> residuals) {
  std::vector<double> fitted;
  fitted.reserve(residuals.size());
  const std::span<const double> rows = actual.last(residuals.size());
  for (std::size_t r = 0; r < residuals.size(); ++r) fitted.push_back(rows[r] - residuals[r]);
  return fitted;
}

}  // namespace

VARAlgo::VARAlgo(VARInputSettings& inputSettings, std::vector<EquationResult>& results)
    : settings(inputSettings), equationResults(results) {
  identify(parserMessage, kIdentity);
}

std::int32_t VARAlgo::start() {
  std::cerr << "VARAlgo::start - Beginning algorithm execution\n";
  try {
    return runSteps();
  } catch (const std::exception& exception) {
    std::cerr << "VARAlgo::start - EXCEPTION: " << procedures::OneLine{exception.what()} << '\n';
  } catch (...) {
    std::cerr << "VARAlgo::start - EXCEPTION: Unknown exception\n";
  }
  return 1;
}

std::int32_t VARAlgo::runSteps() {
  const bool estimated = estimateVARWithLags();
  const bool diagnosed = computeResidualDiagnostics();
  const bool described = computeDescriptiveStats();
  const bool forecastRequested = settings.timeAxis.predictRequested;
  if (!forecastRequested && settings.showTestAutocorrelation)
    parserMessage.GenericWarning(procedures::kNoForecastsWarning);
  if (!estimated || !diagnosed || !described) return 1;
  if (!forecastRequested) return 0;
  SeriesList scratch;
  const auto horizon = std::ssize(settings.timeAxis.forecastLabels);
  if (!computeForecasts(horizon, scratch)) parserMessage.GenericWarning(procedures::kNoForecastsWarning);
  return 0;
}

bool VARAlgo::estimateVARWithLags() {
  if (settings.endogenousSeries.empty()) {
    std::cerr << "VARAlgo::estimateVARWithLags - ERROR: No endogenous data available\n";
    return false;
  }
  equationResults.resize(settings.endogenousSeries.size());
  for (std::size_t i = 0; i < equationResults.size() && i < settings.endogenousNames.size(); ++i) {
    equationResults[i].equationName = settings.endogenousNames[i];
  }
  estimation_ = engine::estimateVar(
      {settings.endogenousSeries, settings.exogenousSeries},
      {.minLag = settings.minLag, .maxLag = settings.maxLag, .countExogenous = false, .allowSingularCovariance = true});
  for (std::int32_t lag = settings.minLag; lag <= settings.maxLag; ++lag) {
    double logLikelihood = 0.0, aic = 0.0, bic = 0.0, hqic = 0.0;
    if (!estimateForLag(lag, logLikelihood, aic, bic, hqic)) return false;
    lagOrders.push_back(lag);
    logLikelihoods.push_back(logLikelihood);
    aicValues.push_back(aic);
    bicValues.push_back(bic);
    hqicValues.push_back(hqic);
  }
  optimalLag = forecastLag = selectOptimalLag(lagOrders, aicValues, bicValues, hqicValues);
  if (optimalLag < settings.maxLag) warnOfSmallerLag(optimalLag, settings.maxLag);
  return computeSelectedCovariance();
}

bool VARAlgo::estimateForLag(std::int32_t lag, double& logLikelihood, double& aic, double& bic, double& hqic) {
  const auto found = std::ranges::find(estimation_.lags, lag, &engine::LagEstimate::lag);
  if (found == estimation_.lags.end()) {
    reportError(estimation_.error->reason);
    return false;
  }
  residualsByLag[lag] = std::move(found->residuals);
  coefficientsByLag[lag] = std::move(found->coefficients);
  if (!covarianceIsUsable(found->determinant)) return false;
  logLikelihood = found->logLikelihood;
  aic = valueOf(engine::Criterion::aic, found->criteria);
  bic = valueOf(engine::Criterion::bic, found->criteria);
  hqic = valueOf(engine::Criterion::hqic, found->criteria);
  if (lag == settings.maxLag) storeEquationResults(*found);
  return true;
}

// Nothing is said of series of different lengths.
void VARAlgo::reportError(engine::FitError::Reason reason) {
  using enum engine::FitError::Reason;
  if (reason == insufficientObservations) parserMessage.GenericError(kInsufficientObservations);
  if (reason == singularRegressors) parserMessage.GenericError(kSingularRegressors);
  if (reason == singularCovariance) parserMessage.GenericError(kSingularCovariance);
  if (reason == outOfRange) parserMessage.GenericError(kOutOfRange);
}

bool VARAlgo::covarianceIsUsable(double determinant) {
  using enum engine::FitError::Reason;
  if (std::isfinite(determinant) && !engine::isSingularDeterminant(determinant)) return true;
  reportError(std::isfinite(determinant) ? singularCovariance : outOfRange);
  return false;
}

void VARAlgo::storeEquationResults(const engine::LagEstimate& estimate) {
  const SeriesList& coefficients = coefficientsByLag[settings.maxLag];
  const SeriesList& residuals = residualsByLag[settings.maxLag];
  for (std::size_t i = 0; i < equationResults.size(); ++i) {
    EquationResult& result = equationResults[i];
    const std::int64_t k = std::ssize(coefficients[i]);
    result.residualVariance = engine::residualVariance(estimate.moments, i, k);
    engine::CoefficientInference inference =
        engine::inferCoefficients(coefficients[i], result.residualVariance, estimate.inverseDiagonal,
                                  estimation_.rows - k, settings.ciLevel, engine::LimitQuantile::normal);
    result.coefficients.assign(1, coefficients[i]);
    setOnlySeries(result.standardErrors, std::move(inference.standardErrors));
    setOnlySeries(result.tStatistics, std::move(inference.tStatistics));
    setOnlySeries(result.pValues, std::move(inference.pValues));
    setOnlySeries(result.lowerLimits, std::move(inference.lowerLimits));
    setOnlySeries(result.upperLimits, std::move(inference.upperLimits));
    result.confidenceLevel = settings.ciLevel;
    setOnlySeries(result.fittedValues, fittedValues(settings.endogenousSeries[i], residuals[i]));
    result.residuals.assign(1, residuals[i]);
  }
}

std::int32_t VARAlgo::selectOptimalLag(const std::vector<std::int32_t>& lags, const std::vector<double>& aic,
                                       const std::vector<double>& bic, const std::vector<double>& hqic) {
  const CriterionSwitches enabled{.aic = settings.useAic, .bic = settings.useBic, .hqic = settings.useHqic};
  const LagChoice choice = chooseLag(lags, aic, bic, hqic, logLikelihoods, enabled);
  warnOfDisagreement(choice, enabled);
  aicLag = choice.aic;
  bicLag = choice.bic;
  hqicLag = choice.hqic;
  return choice.overall;
}

bool VARAlgo::computeSelectedCovariance() {
  const engine::LagEstimate* selected = engine::findLag(estimation_, optimalLag);
  if (selected == nullptr) return true;
  residualCovariance = selected->covariance;
  residualCovarianceDeterminant = selected->determinant;
  return covarianceIsUsable(residualCovarianceDeterminant);
}

}  // namespace varmodel
