#include "procedures/vardynamics/analysis/draws.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

#include "engine/dynamics/bands.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/analysis/regressors.h"
#include "procedures/vardynamics/data/user_error.h"

namespace vardynamics {
namespace {

[[noreturn]] void refuseLevel(double level) {
  fail("The level of ^1 needs more than ^2 replications. Give CILEVEL=99.",
       {procedures::shortestNumber(level), std::to_string(kMostReplications)});
}

// The fewest replications that suffice for percentile limits at a level.
std::int64_t fewestReplications(double level) {
  auto count = static_cast<std::int64_t>(std::floor(1000.0 / (100.0 - level)));
  while (!engine::sufficesFor(static_cast<std::size_t>(count), level)) ++count;
  return count;
}

// So many suffice whatever the draws are: at each point k = 5 cuts off at most eight of them, four at either end. One
// more for the rounding of the level.
std::int64_t sufficientForPaths(std::size_t points, double level) {
  return static_cast<std::int64_t>(std::ceil((800.0 * static_cast<double>(points) + 100.0) / (100.0 - level)));
}

[[noreturn]] void refusePaths(const Settings& settings, std::size_t points) {
  const std::int64_t enough = sufficientForPaths(points, settings.level());
  if (enough > kMostReplications) {
    fail(
        "The draws do not suffice for bands that hold whole paths of this length at this level. Give SIMULTANEOUS=NO.");
  }
  fail("The ^1 replications do not suffice for bands that hold whole paths. Give REPLICATIONS=^2.",
       {std::to_string(settings.bootstrap.replications), std::to_string(enough)});
}

// The longest path of which a band is read; K of them are held at a time.
std::size_t longestPath(const Settings& settings, std::size_t forecastPeriods) {
  const auto length = [](std::int32_t horizon) { return static_cast<std::size_t>(horizon) + 1; };
  std::size_t longest = settings.forecast ? forecastPeriods : 0;
  if (settings.impulse) longest = std::max(longest, length(settings.impulse->horizon));
  if (settings.decomposition) longest = std::max(longest, length(settings.decomposition->horizon));
  return longest;
}

}  // namespace

bool needsDraws(const Settings& settings) {
  const auto& shares = settings.decomposition;
  return (settings.forecast && settings.forecast->interval == Interval::bootstrap) ||
         (settings.impulse && settings.impulse->bands == Bands::bootstrap) ||
         (shares && (shares->variance || shares->generalized) && shares->bands == Bands::bootstrap);
}

void requireReplications(const Settings& settings) {
  const std::int32_t given = settings.bootstrap.replications;
  const std::int64_t fewest = fewestReplications(settings.level());
  if (given >= fewest) return;
  if (fewest > kMostReplications) refuseLevel(settings.level());
  fail("The ^1 replications are too few for limits at ^2 %: fewer than 5 lie beyond each. Give REPLICATIONS=^3.",
       {std::to_string(given), procedures::shortestNumber(settings.level()), std::to_string(fewest)});
}

void requireMemory(const Settings& settings, const engine::FittedVar& fit, std::size_t forecastPeriods) {
  constexpr std::size_t kMostBytes = std::size_t{4} << 30;
  const std::size_t k = engine::seriesCount(fit);
  const std::size_t numbers = k * (engine::regressorCount(fit) + k + longestPath(settings, forecastPeriods));
  const std::size_t most = kMostBytes / (numbers * sizeof(double));
  if (static_cast<std::size_t>(settings.bootstrap.replications) <= most) return;
  fail("The ^1 replications with bands of this length need more than 4 GB. Give REPLICATIONS=^2.",
       {std::to_string(settings.bootstrap.replications), std::to_string(most)});
}

const engine::BootstrapDraws& Draws::get() {
  if (draws_) return *draws_;
  const engine::VarSample sample{data_.sample.endogenous, data_.known};
  const auto terms = namedTerms(data_.settings, data_.cycle);
  const auto corrected = engine::correctedModel(model_.fit, sample, terms ? &*terms : nullptr);
  auto plan = corrected ? engine::resamplingPlan(model_.fit, sample, *corrected) : std::nullopt;
  if (!plan) fail("The model allows no draws: its regressors are linearly dependent to rounding. Leave out a series.");
  const bool wild = settings_.bootstrap.resampling == Resampling::wild;
  engine::BootstrapDraws draws(std::move(*plan),
                               {.replications = static_cast<std::size_t>(settings_.bootstrap.replications),
                                .seed = static_cast<std::uint64_t>(settings_.bootstrap.seed),
                                .resample = wild ? engine::Resample::wild : engine::Resample::residual,
                                .jobs = work_.jobs,
                                .progress = work_.progress});
  bool finished = false;
  try {
    finished = draws.run();
  } catch (const std::runtime_error&) {
    fail("No draw of the model can be fitted: lag ^1 leaves too few rows. Use a smaller lag, or give BANDS=NONE.",
         {std::to_string(model_.lag())});
  }
  if (!finished) throw Stopped();
  return draws_.emplace(std::move(draws));
}

engine::BandOptions Draws::bandOptions(bool simultaneous) {
  engine::BandOptions options{.levels = settings_.levels, .simultaneous = simultaneous, .jobs = work_.jobs};
  if (!work_.progress) return options;
  options.progress = [this](double share) {
    stopped_ = !work_.progress(share);
    return !stopped_;
  };
  return options;
}

std::vector<engine::Band> Draws::required(std::optional<std::vector<engine::Band>> bands, std::size_t points) const {
  if (stopped_) throw Stopped();
  if (!bands) refusePaths(settings_, points);
  return std::move(*bands);
}

std::optional<DrawCount> Draws::count() const {
  if (!draws_) return std::nullopt;
  return DrawCount{
      .replications = draws_->count(), .uncorrected = draws_->uncorrected(), .corrected = draws_->plan().correct};
}

}  // namespace vardynamics
