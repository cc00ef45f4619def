#include "procedures/vardynamics/analysis/decomposition.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/arithmetic/moments.h"
#include "engine/dynamics/forecast_errors.h"
#include "engine/dynamics/impulse_responses.h"
#include "procedures/vardynamics/analysis/estimation_faults.h"
#include "procedures/vardynamics/analysis/regressors.h"

namespace vardynamics {
namespace {

constexpr double kVisible = 0.05;  // of what the shocks do

template <typename Result>
Result required(std::optional<Result> result) {
  if (!result) refuseDependentShocks();
  return std::move(*result);
}

class ShareMaker {
 public:
  ShareMaker(const Model& model, const DecompositionSettings& settings, const std::vector<std::size_t>& order,
             Draws& draws)
      : settings_(settings),
        order_(order),
        model_(model),
        draws_(draws),
        orthogonal_(responses(engine::ShockType::orthogonal)) {}

  void addTo(Decomposition& result) const {
    if (settings_.variance) {
      result.orthogonal = withBands(engine::varianceShares(orthogonal_), engine::ShareType::orthogonal);
    }
    if (!settings_.generalized) return;
    const auto shares = engine::generalizedShares(responses(engine::ShockType::generalized), orthogonal_);
    result.generalized = withBands(shares, engine::ShareType::generalized);
    result.normalised = withBands(engine::normalisedShares(shares), engine::ShareType::normalised);
  }

 private:
  std::size_t horizon() const { return static_cast<std::size_t>(settings_.horizon); }

  engine::Responses responses(engine::ShockType type) const {
    return required(engine::impulseResponses(model_.fit, {.type = type, .order = order_}, horizon() - 1));
  }

  VarianceShares withBands(std::vector<engine::Matrix> shares, engine::ShareType type) const {
    VarianceShares result{.shares = std::move(shares)};
    if (settings_.bands == Bands::none) return result;
    auto bands = engine::shareBands(draws_.get(), type, order_, horizon(), draws_.bandOptions(false));
    result.bands = draws_.required(std::move(bands), horizon());
    return result;
  }

  const DecompositionSettings& settings_;
  const std::vector<std::size_t>& order_;
  const Model& model_;
  Draws& draws_;
  engine::Responses orthogonal_;
};

std::size_t visibleRows(const std::vector<double>& part, const std::vector<double>& shocks) {
  const double scale = std::sqrt(engine::sumOfSquares(shocks) / static_cast<double>(shocks.size()));
  std::size_t rows = part.size();
  while (rows > 0 && std::fabs(part[rows - 1]) <= kVisible * scale) --rows;
  return rows;
}

std::size_t initialRows(const History& history) {
  const engine::Matrix shocks = sumOfShocks(history);
  std::size_t rows = 0;
  for (std::size_t i = 0; i < shocks.columns; ++i) {
    rows = std::max(rows, visibleRows(columnOf(history.parts.initial, i), columnOf(shocks, i)));
  }
  return rows;
}

History historyOf(const Model& model, const ModelData& data, const std::vector<std::size_t>& order) {
  const auto root = required(engine::orderedCholesky(model.covariance, order));
  const auto columns = exogenousColumns(data.settings, model.lag(), data.cycle);
  History history{.parts =
                      engine::historicalDecomposition(model.fit, {data.sample.endogenous, data.known}, root, columns)};
  history.initialRows = initialRows(history);
  return history;
}

}  // namespace

engine::Matrix sumOfShocks(const History& history) {
  engine::Matrix sum(history.parts.initial.rows, history.parts.initial.columns);
  for (const engine::Matrix& shock : history.parts.shocks) {
    for (std::size_t i = 0; i < sum.values.size(); ++i) sum.values[i] += shock.values[i];
  }
  return sum;
}

Decomposition decompose(const Model& model, const ModelData& data, const DecompositionSettings& settings,
                        const std::vector<std::size_t>& order, Draws& draws) {
  Decomposition result;
  if (settings.variance || settings.generalized) {
    const auto horizon = static_cast<std::size_t>(settings.horizon);
    result.standardErrors = engine::standardErrors(
        required(engine::shockErrors(engine::lagMatrices(model.fit), model.covariance, horizon)));
    ShareMaker(model, settings, order, draws).addTo(result);
  }
  if (settings.historical) result.history = historyOf(model, data, order);
  return result;
}

}  // namespace vardynamics
