#include "procedures/vardynamics/analysis/regressors.h"

namespace vardynamics {
namespace {

std::string lagged(const std::string& name, std::size_t lag) {
  return lag == 0 ? name : name + "(t-" + std::to_string(lag) + ")";
}

}  // namespace

std::vector<Regressor> regressorsOf(const ModelSettings& model, std::size_t lag, std::size_t cycle) {
  using enum Regressor::Kind;
  std::vector<Regressor> regressors;
  if (hasConstant(model)) regressors.push_back({.kind = constant});
  for (std::size_t j = 1; j <= lag; ++j) {
    for (std::size_t i = 0; i < model.endogenous.names.size(); ++i) {
      regressors.push_back({.kind = endogenous, .index = i, .lag = j});
    }
  }
  if (model.deterministic == Deterministic::trend) regressors.push_back({.kind = trend});
  for (std::size_t season = 0; season + 1 < cycle; ++season) {
    regressors.push_back({.kind = Regressor::Kind::season, .index = season});
  }
  for (std::size_t i = 0; i < model.exogenous.names.size(); ++i) {
    for (std::int32_t j = 0; j <= model.exogenousLags; ++j) {
      regressors.push_back({.kind = exogenous, .index = i, .lag = static_cast<std::size_t>(j)});
    }
  }
  return regressors;
}

std::vector<std::vector<std::size_t>> exogenousColumns(const ModelSettings& model, std::size_t lag, std::size_t cycle) {
  std::vector<std::vector<std::size_t>> columns(model.exogenous.names.size());
  const std::vector<Regressor> regressors = regressorsOf(model, lag, cycle);
  for (std::size_t j = 0; j < regressors.size(); ++j) {
    if (regressors[j].kind == Regressor::Kind::exogenous) columns[regressors[j].index].push_back(j);
  }
  return columns;
}

std::optional<engine::KnownTerms> namedTerms(const ModelSettings& model, std::size_t cycle) {
  if (!model.exogenous.names.empty()) return std::nullopt;
  engine::KnownTerms terms;
  terms.polynomial = !hasConstant(model) ? 0 : model.deterministic == Deterministic::trend ? 2 : 1;
  if (cycle > 0) terms.seasons = cycle;
  return terms;
}

std::string plainName(const Regressor& regressor, const ModelSettings& model) {
  switch (regressor.kind) {
    case Regressor::Kind::constant:
      return "the constant";
    case Regressor::Kind::trend:
      return "the trend";
    case Regressor::Kind::season:
      return "the seasonal dummies";
    case Regressor::Kind::endogenous:
      return lagged(model.endogenous.names[regressor.index], regressor.lag);
    case Regressor::Kind::exogenous:
      return lagged(model.exogenous.names[regressor.index], regressor.lag);
  }
  return {};
}

}  // namespace vardynamics
