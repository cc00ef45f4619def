#include "engine/dynamics/band_table.h"

#include <algorithm>
#include <atomic>

namespace engine {
namespace {

constexpr std::size_t kCellsTogether = 8;  // one cache line of every replication's row is read once
constexpr std::size_t kReplicationsTogether = 100;

// Cells first .. last - 1 of every replication, a vector each.
std::vector<std::vector<double>> columnsOf(std::span<const double> table, std::size_t cells, std::size_t first,
                                           std::size_t last) {
  std::vector<std::vector<double>> columns(last - first, std::vector<double>(table.size() / cells));
  for (std::size_t b = 0; b < table.size() / cells; ++b) {
    for (std::size_t c = first; c < last; ++c) columns[c - first][b] = table[b * cells + c];
  }
  return columns;
}

void limitCells(std::span<const double> table, std::size_t cells, std::size_t first, std::size_t last,
                std::span<const double> levels, LimitTable& result) {
  std::vector<std::vector<double>> columns = columnsOf(table, cells, first, last);
  for (std::size_t c = first; c < last; ++c) {
    const std::vector<Limits> limits = percentileLimits(columns[c - first], levels);
    for (std::size_t level = 0; level < levels.size(); ++level) result[level][c] = limits[level];
  }
}

// False when the draws do not suffice.
bool limitPath(std::span<const double> table, std::size_t cells, std::size_t first, std::size_t points,
               std::span<const double> levels, LimitTable& result) {
  std::vector<double> path;
  for (std::size_t b = 0; b < table.size(); b += cells) {
    path.insert(path.end(), table.begin() + static_cast<std::ptrdiff_t>(b + first),
                table.begin() + static_cast<std::ptrdiff_t>(b + first + points));
  }
  for (std::size_t level = 0; level < levels.size(); ++level) {
    const auto limits = pathLimits(path, points, levels[level]);
    if (!limits) return false;
    std::ranges::copy(*limits, result[level].begin() + static_cast<std::ptrdiff_t>(first));
  }
  return true;
}

// The share of all tables that is done when `stage` of this one's two stages is done to a share.
Progress stageProgress(const BandOptions& options, TablePlace place, double stage) {
  if (!options.progress) return {};
  return [&options, place, stage](double share) {
    const double done = static_cast<double>(place.index) + 0.5 * (stage + share);
    return options.progress(done / static_cast<double>(place.count));
  };
}

}  // namespace

std::optional<LimitTable> limitTable(std::size_t replications, std::size_t paths, std::size_t points,
                                     const BandOptions& options, TablePlace place, const CellFunction& fill) {
  for (const double level : options.levels) {
    if (!sufficesFor(replications, level)) return std::nullopt;
  }
  const std::size_t cells = paths * points;
  std::vector<double> table(replications * cells);
  const bool filled = forEachBlock(replications, kReplicationsTogether, options.jobs,
                                   stageProgress(options, place, 0.0), [&](std::size_t first, std::size_t last) {
                                     for (std::size_t b = first; b < last; ++b) {
                                       fill(b, std::span(table).subspan(b * cells, cells));
                                     }
                                   });
  if (!filled) return std::nullopt;
  LimitTable result(options.levels.size(), std::vector<Limits>(cells));
  std::atomic<bool> suffices{true};
  const bool finished = forEachBlock(cells, options.simultaneous ? points : kCellsTogether, options.jobs,
                                     stageProgress(options, place, 1.0), [&](std::size_t first, std::size_t last) {
                                       if (!options.simultaneous) {
                                         limitCells(table, cells, first, last, options.levels, result);
                                       } else if (!limitPath(table, cells, first, points, options.levels, result)) {
                                         suffices = false;
                                       }
                                     });
  if (!finished || !suffices) return std::nullopt;
  return result;
}

}  // namespace engine
