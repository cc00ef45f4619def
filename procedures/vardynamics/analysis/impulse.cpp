#include "procedures/vardynamics/analysis/impulse.h"

#include <utility>

#include "engine/regression/inference.h"
#include "procedures/vardynamics/analysis/estimation_faults.h"
#include "procedures/vardynamics/analysis/regressors.h"

namespace vardynamics {
namespace {

using engine::ShockType;

// Values -+ z errors, z of the normal distribution, on which the delta method rests.
engine::Band normalBand(const engine::Responses& values, const engine::Responses& errors, double level) {
  const double width = engine::criticalValue(level);
  engine::Band band{level, values, values};
  for (std::size_t h = 0; h < values.size(); ++h) {
    for (std::size_t c = 0; c < values[h].values.size(); ++c) {
      band.lower[h].values[c] -= width * errors[h].values[c];
      band.upper[h].values[c] += width * errors[h].values[c];
    }
  }
  return band;
}

class ResponseFinder {
 public:
  ResponseFinder(const Settings& settings, const Model& model, const ModelData& data, Draws& draws)
      : settings_(settings), impulse_(*settings.impulse), model_(model), data_(data), draws_(draws) {}

  Impulse find() {
    add(impulse_.orthogonal, ShockType::orthogonal, impulse_.shocks);
    add(impulse_.generalized, ShockType::generalized, impulse_.shocks);
    add(impulse_.reduced, ShockType::reduced, impulse_.shocks);
    add(impulse_.exogenous, ShockType::exogenous, impulse_.exogenousShocks);
    return std::move(found_);
  }

 private:
  void add(bool wanted, ShockType type, const std::vector<std::size_t>& shown) {
    if (!wanted || shown.empty()) return;
    const auto horizon = static_cast<std::size_t>(impulse_.horizon);
    const engine::ImpulseOptions options = impulseOptions(type, settings_, model_, data_);
    auto values = engine::impulseResponses(model_.fit, options, horizon);
    if (!values) refuseDependentShocks();
    ShockResponses& one = found_.emplace_back(ShockResponses{.type = type, .shown = shown, .values = *values});
    if (impulse_.bands == Bands::analytic) addNormalBands(options, one);
    if (impulse_.bands == Bands::bootstrap) {
      auto bands = engine::responseBands(draws_.get(), options, horizon, draws_.bandOptions(impulse_.simultaneous));
      one.bands = draws_.required(std::move(bands), horizon + 1);
    }
  }

  void addNormalBands(const engine::ImpulseOptions& options, ShockResponses& one) const {
    one.errors = engine::responseErrors(model_.fit, options, one.horizon());
    if (!one.errors) refuseDependentShocks();
    for (const double level : settings_.levels) one.bands.push_back(normalBand(one.values, *one.errors, level));
  }

  const Settings& settings_;
  const ImpulseSettings& impulse_;
  const Model& model_;
  const ModelData& data_;
  Draws& draws_;
  Impulse found_;
};

}  // namespace

engine::ImpulseOptions impulseOptions(ShockType type, const Settings& settings, const Model& model,
                                      const ModelData& data) {
  return {.type = type,
          .unit = settings.impulse->unit,
          .cumulative = settings.impulse->cumulative,
          .order = settings.order,
          .exogenousColumns = exogenousColumns(data.settings, model.lag(), data.cycle)};
}

Impulse findResponses(const Settings& settings, const Model& model, const ModelData& data, Draws& draws) {
  return ResponseFinder(settings, model, data, draws).find();
}

engine::Matrix orthogonalShocks(const Model& model, const std::vector<std::size_t>& order) {
  const std::size_t k = engine::seriesCount(model.fit);
  const std::vector<std::size_t> places = engine::completeOrder(order, k);
  const auto root = engine::orderedCholesky(model.covariance, places);
  if (!root) refuseDependentShocks();
  engine::Matrix shocks(engine::rowCount(model.fit), k);
  // In this order P is lower triangular.
  for (std::size_t r = 0; r < shocks.rows; ++r) {
    for (std::size_t a = 0; a < k; ++a) {
      double rest = model.fit.residuals[places[a]][r];
      for (std::size_t b = 0; b < a; ++b) rest -= (*root)(places[a], places[b]) * shocks(r, places[b]);
      shocks(r, places[a]) = rest / (*root)(places[a], places[a]);
    }
  }
  return shocks;
}

}  // namespace vardynamics
