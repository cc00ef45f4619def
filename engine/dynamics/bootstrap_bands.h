// Bands of responses, variance shares and forecasts from bootstrap draws.

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/bootstrap.h"
#include "engine/dynamics/impulse_responses.h"

namespace engine {

struct BandOptions {
  std::vector<double> levels = {95.0};  // percent
  bool simultaneous = false;            // over the horizons of one response
  std::size_t jobs = 1;
  Progress progress = {};
};

// One matrix a horizon, of the shape of what the band is around.
struct Band {
  double level = 0.0;
  std::vector<Matrix> lower;
  std::vector<Matrix> upper;
};

// Horizons 0..horizon, of the responses that impulseResponses() computes, scaled and cumulated inside each draw.
// `exogenousColumns` of the options counts columns of the coefficients as there. Nothing when the draws do not suffice
// for a level, or the options' progress stopped the work.
std::optional<std::vector<Band>> responseBands(const BootstrapDraws& draws, const ImpulseOptions& impulse,
                                               std::size_t horizon, const BandOptions& options);

// Horizons 1..horizon of varianceShares(), or of generalizedShares() as they are or divided by their row sums.
enum class ShareType { orthogonal, generalized, normalised };
std::optional<std::vector<Band>> shareBands(const BootstrapDraws& draws, ShareType type,
                                            std::span<const std::size_t> order, std::size_t horizon,
                                            const BandOptions& options);

// Horizons 1..horizon from the end of the sample, K x 1 matrices: every draw's model from the observed last p rows on,
// with fresh rows of residuals (Fresoli, Ruiz & Pascual 2015). `known` holds the future rows of the columns beside the
// lags, constant included, H x d in the order of the coefficients. `change` is given every drawn path of a series and
// may put another in its place, from several threads.
using PathChange = std::function<void(std::size_t series, std::span<double> path)>;
std::optional<std::vector<Band>> forecastBands(const BootstrapDraws& draws, std::span<const std::vector<double>> series,
                                               const Matrix& known, const BandOptions& options,
                                               const PathChange& change = {});

}  // namespace engine
