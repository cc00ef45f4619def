#include "procedures/vardynamics/analysis/model.h"

#include <algorithm>
#include <utility>

#include "engine/linear_algebra/correlations.h"
#include "procedures/vardynamics/analysis/estimation_faults.h"
#include "procedures/vardynamics/analysis/lag_range.h"
#include "procedures/vardynamics/analysis/regressors.h"

namespace vardynamics {
namespace {

std::int64_t firstRow(const ModelData& data, std::int32_t lag) {
  return std::max<std::int64_t>(lag, data.settings.exogenousLags);
}

engine::VarEstimation estimate(const ModelData& data, engine::VarOptions options) {
  options.constant = hasConstant(data.settings);
  options.firstRow = firstRow(data, options.maxLag);
  engine::VarEstimation estimation = engine::estimateVar({data.sample.endogenous, data.known}, options);
  if (estimation.error) refuse(data, *estimation.error);
  return estimation;
}

LagSelection selectLag(const ModelData& data, std::int32_t maxLag) {
  LagSelection selection{.minLag = data.settings.minLag, .maxLag = maxLag};
  selection.candidates =
      estimate(data, {.minLag = 0, .maxLag = maxLag, .residuals = engine::KeptResiduals::none, .inferAllLags = false});
  return selection;
}

std::int32_t checkedMaxLag(const ModelData& data) {
  const ModelShape shape = shapeOf(data);
  const std::int32_t maxLag = data.settings.maxLag.value_or(std::max(defaultMaxLag(shape), data.settings.minLag));
  requireUsableLag(shape, maxLag, data.settings.maxLag ? "MAXLAG" : "MINLAG");
  return maxLag;
}

Model modelOf(const ModelData& data, engine::FittedVar fit, double level) {
  Model model;
  model.fit = std::move(fit);
  const engine::VarSample sample{data.sample.endogenous, data.known};
  for (std::size_t i = 0; i < data.sample.endogenous.size(); ++i) {
    model.inference.push_back(engine::studentInference(model.fit, i, level));
    model.equations.push_back(engine::equationFit(model.fit, sample, i));
  }
  model.covariance = engine::residualCovariance(model.fit);
  model.correlations = engine::correlations(model.covariance);
  model.logDeterminant = engine::logDeterminant(model.fit, model.covariance);
  model.logLikelihood = engine::logLikelihood(model.fit, model.logDeterminant);
  return model;
}

}  // namespace

std::int32_t LagSelection::chosenBy(Criterion criterion) const {
  const auto column = static_cast<std::size_t>(criterion);
  const engine::LagEstimate* best = nullptr;
  for (const engine::LagEstimate& candidate : candidates.lags) {
    if (candidate.lag < minLag) continue;
    if (best == nullptr || candidate.criteria[column] < best->criteria[column]) best = &candidate;
  }
  return best->lag;
}

Model estimateModel(const ModelData& data, double level) {
  std::optional<LagSelection> selection;
  if (!data.settings.lag) selection = selectLag(data, checkedMaxLag(data));
  const std::int32_t lag = selection ? selection->chosenBy(data.settings.criterion) : *data.settings.lag;
  Model model = modelOf(data, fitLag(data, lag, "LAG"), level);
  model.selection = std::move(selection);
  return model;
}

engine::FittedVar fitLag(const ModelData& data, std::int32_t lag, const char* setting) {
  requireUsableLag(shapeOf(data), lag, setting);
  return engine::fittedVar(estimate(data, {.minLag = lag, .maxLag = lag, .fullInverse = true}), lag);
}

}  // namespace vardynamics
