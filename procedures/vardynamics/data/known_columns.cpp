#include "procedures/vardynamics/data/known_columns.h"

#include <cmath>

namespace vardynamics {
namespace {

double centredDummy(const Seasons& seasons, std::size_t season, std::size_t t) {
  const double share = 1.0 / static_cast<double>(seasons.cycle);
  return seasons.ofPeriod[t] == season ? 1.0 - share : -share;
}

// The value of exogenous series i in period t; NaN after what is known.
double exogenousValue(const Sample& sample, std::size_t i, std::size_t t) {
  if (t < sample.rows()) return sample.exogenous[i][t];
  const std::size_t step = t - sample.rows();
  return step < sample.futureRows() ? sample.futureExogenous[i][step] : std::nan("");
}

}  // namespace

SeriesList knownColumns(const Sample& sample, std::size_t horizon, const KnownColumnOptions& options) {
  SeriesList columns;
  const auto add = [&](auto valueAt) {
    std::vector<double>& column = columns.emplace_back(sample.rows() + horizon);
    for (std::size_t t = 0; t < column.size(); ++t) column[t] = valueAt(t);
  };
  if (options.trend) add([](std::size_t t) { return static_cast<double>(t + 1); });
  for (std::size_t season = 0; season + 1 < options.seasons.cycle; ++season) {
    add([&](std::size_t t) { return centredDummy(options.seasons, season, t); });
  }
  for (std::size_t i = 0; i < sample.exogenous.size(); ++i) {
    for (std::size_t lag = 0; lag <= options.exogenousLags; ++lag) {
      add([&](std::size_t t) { return t < lag ? 0.0 : exogenousValue(sample, i, t - lag); });
    }
  }
  return columns;
}

}  // namespace vardynamics
