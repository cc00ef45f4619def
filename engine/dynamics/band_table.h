// The draws of one path after another, turned into bands.

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "engine/dynamics/bands.h"
#include "engine/dynamics/bootstrap_bands.h"

namespace engine {

// Fills `cells` with the values of one replication, path by path: `paths` times `points` numbers. Called from several
// threads.
using CellFunction = std::function<void(std::size_t replication, std::span<double> cells)>;

// limits[level][path * points + point].
using LimitTable = std::vector<std::vector<Limits>>;

// One table of many: its progress is that of all.
struct TablePlace {
  std::size_t index = 0;
  std::size_t count = 1;
};

// Nothing when the draws do not suffice for a level or the options' progress stopped the work.
std::optional<LimitTable> limitTable(std::size_t replications, std::size_t paths, std::size_t points,
                                     const BandOptions& options, TablePlace place, const CellFunction& fill);

}  // namespace engine
