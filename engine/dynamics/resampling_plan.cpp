#include <algorithm>
#include <cmath>

#include "engine/arithmetic/moments.h"
#include "engine/dynamics/resampling.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/orthonormal_basis.h"

namespace engine {
namespace {

std::vector<double> rowMajor(std::span<const std::vector<double>> columns) {
  std::vector<double> result(columns.size() * (columns.empty() ? 0 : columns.front().size()));
  for (std::size_t j = 0; j < columns.size(); ++j) {
    for (std::size_t r = 0; r < columns[j].size(); ++r) result[r * columns.size() + j] = columns[j][r];
  }
  return result;
}

// Least-squares residuals plus what the shift of the slopes leaves after projection on the terms, less their means.
std::vector<std::vector<double>> correctedShocks(const FittedVar& fit, const CorrectedModel& model,
                                                 std::span<const std::vector<double>> regressors,
                                                 const OrthonormalBasis& terms) {
  std::vector<std::vector<double>> shocks = fit.residuals;
  const double scale = std::sqrt(static_cast<double>(rowCount(fit)) / residualDegrees(fit));
  for (std::size_t i = 0; i < shocks.size(); ++i) {
    std::vector<double> shift(rowCount(fit));
    for (std::size_t j = 0; j < model.bias.columns; ++j) {
      const std::vector<double>& column = regressors[firstLagColumn(fit) + j];
      for (std::size_t r = 0; r < shift.size(); ++r) shift[r] += model.share * model.bias(i, j) * column[r];
    }
    terms.removeFrom(shift);
    for (std::size_t r = 0; r < shift.size(); ++r) shocks[i][r] += shift[r];
    const double center = mean(shocks[i]);
    for (double& value : shocks[i]) value = (value - center) * scale;
  }
  return shocks;
}

// What the terms add to row r of equation i, for series less their centre.
void fillKnown(const CorrectedModel& model, std::span<const std::vector<double>> regressors, ResamplingPlan& plan) {
  const std::size_t k = plan.series;
  plan.known.assign(plan.rows * k, 0.0);
  for (std::size_t i = 0; i < k; ++i) {
    double shift = -plan.centre[i];
    for (std::size_t c = 0; c < k * plan.lag; ++c) {
      shift += model.fit.coefficients(i, firstLagColumn(model.fit) + c) * plan.centre[c % k];
    }
    for (std::size_t r = 0; r < plan.rows; ++r) {
      double value = shift;
      for (const std::size_t j : deterministicColumns(model.fit)) {
        value += model.fit.coefficients(i, j) * regressors[j][r];
      }
      plan.known[r * k + i] = value;
    }
  }
}

void fillSeries(const FittedVar& fit, const VarSample& sample, ResamplingPlan& plan) {
  const Matrix covariance = residualCovariance(fit);
  for (std::size_t i = 0; i < plan.series; ++i) {
    const std::span<const double> used = std::span(sample.series[i]).subspan(fit.firstRow, plan.rows);
    plan.centre.push_back(fit.constant ? mean(used) : 0.0);
    plan.scales.push_back(std::sqrt(covariance(i, i)));
  }
  for (std::size_t t = fit.firstRow - fit.lag; t < fit.firstRow; ++t) {
    for (std::size_t i = 0; i < plan.series; ++i) plan.start.push_back(sample.series[i][t] - plan.centre[i]);
  }
}

}  // namespace

std::optional<ResamplingPlan> resamplingPlan(const FittedVar& fit, const VarSample& sample,
                                             const CorrectedModel& model) {
  const std::vector<std::vector<double>> regressors = regressorColumns(fit, sample);
  OrthonormalBasis terms;
  std::vector<std::vector<double>> columns;
  for (const std::size_t j : deterministicColumns(fit)) {
    if (!terms.append(regressors[j])) return std::nullopt;
    columns.push_back(regressors[j]);
  }
  ResamplingPlan plan;
  plan.series = seriesCount(fit);
  plan.lag = fit.lag;
  plan.rows = rowCount(fit);
  plan.terms = terms.size();
  plan.degrees = residualDegrees(fit);
  plan.correct = model.share > 0.0;
  fillSeries(fit, sample, plan);
  plan.bias = oldestFirst(model.bias);
  plan.shocks = rowMajor(correctedShocks(fit, model, regressors, terms));
  fillKnown(model, regressors, plan);
  const Matrix lags = blockOf(model.fit.coefficients, 0, firstLagColumn(fit), plan.series, plan.series * fit.lag);
  Matrix ordered(plan.series, lags.columns);
  ordered.values = oldestFirst(lags);
  plan.lags = transposed(ordered).values;
  std::vector<std::vector<double>> basis;
  for (std::size_t j = 0; j < terms.size(); ++j) basis.push_back(terms[j]);
  plan.basis = rowMajor(basis);
  plan.triangle = terms.coordinates(columns);
  return plan;
}

}  // namespace engine
