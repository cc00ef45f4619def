// The estimation engine: fits every lag order, selects one, and leaves everything that later steps read.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "engine/regression/var_estimation.h"
#include "host/parser_message.h"
#include "procedures/varmodel/algo/equation_result.h"
#include "procedures/varmodel/syntax/input_settings.h"

namespace varmodel {

class VARAlgo {
 public:
  using SeriesList = std::vector<std::vector<double>>;

  // Both must outlive the engine; the results list is the caller's and is filled by `start`.
  VARAlgo(VARInputSettings& settings, std::vector<EquationResult>& equationResults);
  VARAlgo(const VARAlgo&) = delete;
  VARAlgo& operator=(const VARAlgo&) = delete;

  std::int32_t start();  // 0 success, 1 failure; lets no exception out
  bool estimateVARWithLags();
  bool computeResidualDiagnostics();
  bool computeDescriptiveStats();
  // `output` becomes K rows of `horizon` values; false when no forecast can be made.
  bool computeForecasts(std::int64_t horizon, SeriesList& output);

  VARInputSettings& settings;
  std::vector<EquationResult>& equationResults;
  std::vector<std::vector<double>> residualCovariance;  // of the selected lag, divisor n
  double residualCovarianceDeterminant = 0.0;
  std::vector<std::int32_t> lagOrders;
  std::vector<double> aicValues;  // parallel to lagOrders, as the next three
  std::vector<double> bicValues;
  std::vector<double> hqicValues;
  std::vector<double> logLikelihoods;
  std::int32_t aicLag = 0;
  std::int32_t bicLag = 0;
  std::int32_t hqicLag = 0;
  std::int32_t optimalLag = 0;
  std::map<std::int32_t, SeriesList> residualsByLag;
  std::map<std::int32_t, SeriesList> coefficientsByLag;
  ParserMessage parserMessage;
  std::int32_t forecastLag = 0;  // the selected lag again, as the forecasts read it

 private:
  std::int32_t runSteps();
  // Takes over what was fitted for one lag order; false after a reported failure.
  bool estimateForLag(std::int32_t lag, double& logLikelihood, double& aic, double& bic, double& hqic);
  void reportError(engine::FitError::Reason reason);
  bool covarianceIsUsable(double determinant);
  // Fills the per-equation fields of the MAXLAG model.
  void storeEquationResults(const engine::LagEstimate& estimate);
  // Sets the lag of each criterion and returns the overall one; throws std::invalid_argument for empty or uneven lists.
  std::int32_t selectOptimalLag(const std::vector<std::int32_t>& lags, const std::vector<double>& aic,
                                const std::vector<double>& bic, const std::vector<double>& hqic);
  bool computeSelectedCovariance();

  engine::VarEstimation estimation_;  // residuals and coefficients are moved into the two maps
};

}  // namespace varmodel
