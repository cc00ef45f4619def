#include "engine/dynamics/bands.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <functional>
#include <numeric>

namespace engine {
namespace {

constexpr std::size_t kFewestBeyond = 5;

// Type 7 of values of which only the needed order statistics are put in place.
double selectPercentile(std::span<double> values, double probability) {
  const double position = probability * static_cast<double>(values.size() - 1);
  const auto lower = static_cast<std::size_t>(position);
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(lower), values.end());
  const double share = position - static_cast<double>(lower);
  if (share == 0.0) return values[lower];
  const double next = *std::min_element(values.begin() + static_cast<std::ptrdiff_t>(lower) + 1, values.end());
  return values[lower] + share * (next - values[lower]);
}

std::vector<double> pointValues(std::span<const double> draws, std::size_t points, std::size_t point) {
  std::vector<double> values;
  for (std::size_t b = point; b < draws.size(); b += points) values.push_back(draws[b]);
  return values;
}

// Lowers each draw's smallest rank from either end to that at this point.
void lowerRanks(const std::vector<double>& values, std::vector<std::size_t>& smallest) {
  std::vector<std::size_t> order(values.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) { return values[a] < values[b]; });
  if (values[order.front()] == values[order.back()]) return;
  for (std::size_t rank = 0; rank < order.size(); ++rank) {
    smallest[order[rank]] = std::min(smallest[order[rank]], std::min(rank + 1, order.size() - rank));
  }
}

}  // namespace

double percentile(std::span<const double> sorted, double probability) {
  const double position = probability * static_cast<double>(sorted.size() - 1);
  const auto lower = static_cast<std::size_t>(position);
  const double share = position - static_cast<double>(lower);
  return share == 0.0 ? sorted[lower] : sorted[lower] + share * (sorted[lower + 1] - sorted[lower]);
}

bool sufficesFor(std::size_t draws, double level) {
  return static_cast<double>(draws) * (100.0 - level) / 200.0 >= static_cast<double>(kFewestBeyond);
}

std::vector<Limits> percentileLimits(std::span<double> values, std::span<const double> levels) {
  std::vector<Limits> limits;
  for (const double level : levels) {
    const double tail = (100.0 - level) / 200.0;
    limits.push_back({selectPercentile(values, tail), selectPercentile(values, 1.0 - tail)});
  }
  return limits;
}

std::optional<std::vector<Limits>> pathLimits(std::span<const double> draws, std::size_t points, double level) {
  const std::size_t count = draws.size() / points;
  std::vector<std::size_t> smallest(count, count);
  for (std::size_t point = 0; point < points; ++point) lowerRanks(pointValues(draws, points, point), smallest);
  // The share `level` of the draws has a rank of at least that of the draw in this place.
  const auto inside = static_cast<std::size_t>(std::ceil(level / 100.0 * static_cast<double>(count)));
  std::ranges::nth_element(smallest, smallest.begin() + static_cast<std::ptrdiff_t>(inside) - 1, std::greater<>());
  const std::size_t k = smallest[inside - 1];
  if (k < kFewestBeyond) return std::nullopt;
  std::vector<Limits> limits;
  for (std::size_t point = 0; point < points; ++point) {
    std::vector<double> values = pointValues(draws, points, point);
    std::ranges::sort(values);
    limits.push_back({values[std::min(k, count) - 1], values[count - std::min(k, count)]});
  }
  return limits;
}

}  // namespace engine
