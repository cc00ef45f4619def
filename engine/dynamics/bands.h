// Bands from the draws of a bootstrap: pointwise percentiles, and bands that hold a whole path.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace engine {

// The quantile of sorted values by linear interpolation between order statistics: type 7 of Hyndman & Fan (1996).
double percentile(std::span<const double> sorted, double probability);

// True when `draws` suffice for percentile limits at `level` percent: at least 5 of them beyond each limit.
bool sufficesFor(std::size_t draws, double level);

struct Limits {
  double lower = 0.0;
  double upper = 0.0;
};

// Percentile limits of the values (which are reordered), one pair a level.
std::vector<Limits> percentileLimits(std::span<double> values, std::span<const double> levels);

// Limits of a path that hold it at all its points together, at `level` percent. `draws` holds B x points, row by row.
// The draws are ranked at each point; k is the largest number such that at least level percent of the draws have every
// rank in k .. B + 1 - k; the limits are the k-th smallest and k-th largest values. A point at which all draws agree
// does not count. Nothing when k is below 5: the replications do not suffice.
std::optional<std::vector<Limits>> pathLimits(std::span<const double> draws, std::size_t points, double level);

}  // namespace engine
