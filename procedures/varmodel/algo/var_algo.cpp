#include "procedures/varmodel/algo/var_algo.h"

#include <exception>
#include <iostream>
#include <optional>
#include <set>
#include <span>
#include <sstream>
#include <utility>

#include "engine/linear_algebra/condition.h"
#include "engine/linear_algebra/lu.h"
#include "engine/regression/inference.h"
#include "engine/regression/lag_selection.h"
#include "engine/regression/regression_rows.h"
#include "engine/regression/residual_covariance.h"
#include "procedures/varmodel/syntax/command_identity.h"

namespace varmodel {
namespace {

constexpr const char* kSingularCovariance = "Covariance matrix is singular";
constexpr const char* kSingularRegressors =
    "Regressor matrix is singular: The model cannot be estimated due to perfect multicollinearity";
constexpr const char* kInsufficientObservations =
    "Insufficient observations: The number of effective observations must exceed the number of parameters";

// One line that tells which outputs belong to which lag; without it the tables of such a run mislead.
void warnOfSmallerLag(std::int32_t selected, std::int32_t maxLag) {
  std::cerr << "Warning: VARAlgo::estimateVARWithLags - The selected lag " << selected << " is below MAXLAG " << maxLag
            << ": parameters, fitted values and saved predicted values are those of lag " << maxLag
            << "; residuals, their tests and covariance, and forecasts are those of lag " << selected
            << ". R Square compares rows of different length, and MSE, RMSE, MAE and MAPE stay 0.\n";
}

// Two or three criteria that all choose another lag leave the decision to the log-likelihood, which no table tells.
void warnOfDisagreement(const engine::LagChoice& choice, engine::CriterionSwitches enabled) {
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
    std::cerr << "VARAlgo::start - EXCEPTION: " << exception.what() << '\n';
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
  regression_.reset();
  for (std::int32_t lag = settings.minLag; lag <= settings.maxLag; ++lag) {
    engine::InformationCriteria criteria;
    if (!estimateForLag(lag, criteria.logLikelihood, criteria.aic, criteria.bic, criteria.hqic)) return false;
    lagOrders.push_back(lag);
    logLikelihoods.push_back(criteria.logLikelihood);
    aicValues.push_back(criteria.aic);
    bicValues.push_back(criteria.bic);
    hqicValues.push_back(criteria.hqic);
  }
  optimalLag = forecastLag = selectOptimalLag(lagOrders, aicValues, bicValues, hqicValues);
  if (optimalLag < settings.maxLag) warnOfSmallerLag(optimalLag, settings.maxLag);
  return computeSelectedCovariance();
}

bool VARAlgo::estimateForLag(std::int32_t lag, double& logLikelihood, double& aic, double& bic, double& hqic) {
  const SeriesList& endogenous = settings.endogenousSeries;
  const SeriesList& exogenous = settings.exogenousSeries;
  const std::int64_t k = engine::regressorCount(endogenous.size(), exogenous.size(), lag);
  if (std::ssize(endogenous.front()) - settings.maxLag <= k) {
    parserMessage.GenericError(kInsufficientObservations);
    return false;
  }
  if (!engine::seriesAreAligned(endogenous, exogenous, endogenous.front().size())) return false;
  if (!regression_) regression_.emplace(endogenous, exogenous, settings.maxLag);
  std::optional<engine::LagFit> fit = regression_->fit(lag);
  if (!fit) {
    parserMessage.GenericError(kSingularRegressors);
    return false;
  }
  if (!regressorsAreUsable(fit->reciprocalCondition, lag, k)) return false;
  residualsByLag[lag] = std::move(fit->residuals);
  coefficientsByLag[lag] = std::move(fit->coefficients);
  covarianceByLag_[lag] = engine::residualCovarianceMatrix(fit->moments);
  if (!computeCriteria(lag, logLikelihood, aic, bic, hqic)) return false;
  if (lag == settings.maxLag) storeEquationResults(fit->moments);
  return true;
}

bool VARAlgo::regressorsAreUsable(double reciprocalCondition, std::int32_t lag, std::int64_t k) {
  const engine::Conditioning conditioning = engine::classifyCondition(reciprocalCondition, static_cast<std::size_t>(k));
  if (conditioning == engine::Conditioning::singular) {
    parserMessage.GenericError(kSingularRegressors);
    return false;
  }
  if (conditioning == engine::Conditioning::poor) {
    std::cerr << "Warning: VARAlgo::estimateForLag - The regressors of lag " << lag
              << " are nearly collinear (reciprocal condition " << reciprocalCondition
              << "): few digits of the coefficients and standard errors can be trusted.\n";
  }
  return true;
}

bool VARAlgo::computeCriteria(std::int32_t lag, double& logLikelihood, double& aic, double& bic, double& hqic) {
  const SeriesList& residuals = residualsByLag[lag];
  const double determinantOfLag = engine::determinant(covarianceByLag_[lag]);
  if (engine::isSingularDeterminant(determinantOfLag)) {
    parserMessage.GenericError(kSingularCovariance);
    return false;
  }
  const engine::InformationCriteria criteria =
      engine::informationCriteria(determinantOfLag, residuals.size(), std::ssize(residuals.front()), lag);
  logLikelihood = criteria.logLikelihood;
  aic = criteria.aic;
  bic = criteria.bic;
  hqic = criteria.hqic;
  return true;
}

void VARAlgo::storeEquationResults(const engine::ResidualMoments& moments) {
  const SeriesList& coefficients = coefficientsByLag[settings.maxLag];
  const SeriesList& residuals = residualsByLag[settings.maxLag];
  const std::vector<double> inverseDiagonal = regression_->inverseDiagonal();
  regression_.reset();  // MAXLAG is the last lag; its matrices make room for the results
  for (std::size_t i = 0; i < equationResults.size(); ++i) {
    EquationResult& result = equationResults[i];
    const std::int64_t k = std::ssize(coefficients[i]);
    result.residualVariance = engine::residualVariance(moments, i, k);
    engine::CoefficientInference inference = engine::inferCoefficients(
        coefficients[i], result.residualVariance, inverseDiagonal, std::ssize(residuals[i]) - k, settings.ciLevel);
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
  const engine::CriterionSwitches enabled{.aic = settings.useAic, .bic = settings.useBic, .hqic = settings.useHqic};
  const engine::LagChoice choice = engine::chooseLag(lags, aic, bic, hqic, logLikelihoods, enabled);
  warnOfDisagreement(choice, enabled);
  aicLag = choice.aic;
  bicLag = choice.bic;
  hqicLag = choice.hqic;
  return choice.overall;
}

bool VARAlgo::computeSelectedCovariance() {
  if (!residualsByLag.contains(optimalLag)) return true;
  residualCovariance = covarianceByLag_[optimalLag];
  residualCovarianceDeterminant = engine::determinant(residualCovariance);
  if (!engine::isSingularDeterminant(residualCovarianceDeterminant)) return true;
  parserMessage.GenericError(kSingularCovariance);
  return false;
}

}  // namespace varmodel
