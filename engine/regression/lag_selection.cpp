#include "engine/regression/lag_selection.h"

#include <algorithm>
#include <cmath>

namespace engine {
namespace {

constexpr double kTwoPi = 6.283185307179586;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

double deviance(double logLikelihood, const ModelSize& size) {
  return -2.0 * logLikelihood / static_cast<double>(size.rows);
}

double akaike(double logLikelihood, double /*logDeterminant*/, const ModelSize& size) {
  return 2.0 * size.parameters / static_cast<double>(size.rows) + deviance(logLikelihood, size);
}

double schwarz(double logLikelihood, double /*logDeterminant*/, const ModelSize& size) {
  const auto rows = static_cast<double>(size.rows);
  return std::log(rows) / rows * size.parameters + deviance(logLikelihood, size);
}

double hannanQuinn(double logLikelihood, double /*logDeterminant*/, const ModelSize& size) {
  if (size.rows < 3) return kInfinity;
  const auto rows = static_cast<double>(size.rows);
  return 2.0 * std::log(std::log(rows)) / rows * size.parameters + deviance(logLikelihood, size);
}

double finalPredictionError(double /*logLikelihood*/, double logDeterminant, const ModelSize& size) {
  if (size.rows <= size.regressors) return kInfinity;
  const double inflation =
      static_cast<double>(size.rows + size.regressors) / static_cast<double>(size.rows - size.regressors);
  return static_cast<double>(size.equations) * std::log(inflation) + logDeterminant;
}

}  // namespace

const std::array<CriterionRow, kCriterionCount>& criterionTable() {
  static constexpr std::array<CriterionRow, kCriterionCount> table{{
      {Criterion::aic, "AIC", akaike, false},
      {Criterion::bic, "BIC", schwarz, false},
      {Criterion::hqic, "HQIC", hannanQuinn, false},
      {Criterion::fpe, "FPE", finalPredictionError, true},
  }};
  return table;
}

double logLikelihood(double logDeterminant, const ModelSize& size) {
  if (size.equations == 0 || size.rows == 0) return 0.0;
  const auto rows = static_cast<double>(size.rows);
  const auto equations = static_cast<double>(size.equations);
  return -(rows * 0.5) * logDeterminant - (std::log(kTwoPi) + 1.0) * (equations * rows * 0.5);
}

CriterionValues criterionValues(double logLikelihood, double logDeterminant, const ModelSize& size) {
  CriterionValues values;
  values.fill(kInfinity);
  if (size.equations == 0 || size.rows == 0) return values;
  for (const CriterionRow& row : criterionTable()) {
    values[static_cast<std::size_t>(row.criterion)] = row.value(logLikelihood, logDeterminant, size);
  }
  return values;
}

std::size_t placeOfSmallest(std::span<const double> values) {
  return static_cast<std::size_t>(std::ranges::min_element(values) - values.begin());
}

}  // namespace engine
