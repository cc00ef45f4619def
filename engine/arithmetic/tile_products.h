// Products A'B by tiles: the one matrix operation that the engine's work consists of.

#pragma once

#include <cstddef>

#include "engine/arithmetic/planes.h"

namespace engine {

// Terms that are summed from zero before they are added to the rest: one group's factors stay in the first-level cache.
inline constexpr std::size_t kSummedRows = 256;

// Which parts of the operands take part: `steps` rows of A from `factorRow` on and of B from `row` on; the columns
// `factor` .. `factor + factorCount - 1` of A; the columns `first` .. `last - 1` of B, rounded up to whole tiles.
struct TileRange {
  std::size_t steps = 0;
  std::size_t factorRow = 0;
  std::size_t factor = 0;
  std::size_t factorCount = 0;
  std::size_t row = 0;
  std::size_t first = 0;
  std::size_t last = 0;
};

// target(targetRow + i, targetColumn + j) += sum over s of A(factorRow + s, factor + i) * B(row + s, first + j). Each
// element is summed in ascending order of s, in blocks of kSummedRows that start from zero and are then added. The
// target must have room for the last tile, and B must be readable that far.
template <class Real>
void addTileProducts(const TileRange& range, const Planes<Real>& a, const RowTable& b, Planes<Real>& target,
                     std::size_t targetRow, std::size_t targetColumn);

extern template void addTileProducts(const TileRange&, const Planes<double>&, const RowTable&, Planes<double>&,
                                     std::size_t, std::size_t);
extern template void addTileProducts(const TileRange&, const Planes<DoubleDouble>&, const RowTable&,
                                     Planes<DoubleDouble>&, std::size_t, std::size_t);

}  // namespace engine
