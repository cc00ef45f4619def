#include "engine/arithmetic/tile_products.h"

#include <algorithm>
#include <array>

namespace engine {
namespace {

template <class Real>
const std::array<TileKernel, kTileRows>& kernelsFor() {
  if constexpr (Planes<Real>::kExtended) return activeKernels().extended;
  return activeKernels().plain;
}

// Groups of eight rows; a last group of one to three rows, which would keep the processor waiting for its sums, shares
// with the one before.
std::size_t groupHeight(std::size_t left) {
  return left > kTileRows && left < kTileRows + kTileRows / 2 ? (left + 1) / 2 : std::min(left, kTileRows);
}

template <class Real>
void addStepBlock(const TileRange& range, const Planes<Real>& a, const RowTable& b, Planes<Real>& target,
                  std::size_t targetRow, std::size_t targetColumn) {
  constexpr bool kExtended = Planes<Real>::kExtended;
  const auto& kernels = kernelsFor<Real>();
  TileJob job{.steps = range.steps, .factorStride = a.stride(), .targetStride = target.stride()};
  job.rows = {b.high.data() + range.row, kExtended ? b.low.data() + range.row : nullptr};
  for (std::size_t i = 0; i < range.factorCount;) {
    const std::size_t height = groupHeight(range.factorCount - i);
    job.factors[0] = a.high(range.factorRow) + range.factor + i;
    if constexpr (kExtended) job.factors[1] = a.low(range.factorRow) + range.factor + i;
    for (job.column = range.first; job.column < range.last; job.column += kTileColumns) {
      const std::size_t offset = targetColumn + job.column - range.first;
      job.target[0] = target.high(targetRow + i) + offset;
      if constexpr (kExtended) job.target[1] = target.low(targetRow + i) + offset;
      kernels[height - 1](job);
    }
    i += height;
  }
}

}  // namespace

template <class Real>
void addTileProducts(const TileRange& range, const Planes<Real>& a, const RowTable& b, Planes<Real>& target,
                     std::size_t targetRow, std::size_t targetColumn) {
  for (std::size_t s = 0; s < range.steps; s += kSummedRows) {
    TileRange block = range;
    block.steps = std::min(kSummedRows, range.steps - s);
    block.factorRow += s;
    block.row += s;
    addStepBlock(block, a, b, target, targetRow, targetColumn);
  }
}

template void addTileProducts(const TileRange&, const Planes<double>&, const RowTable&, Planes<double>&, std::size_t,
                              std::size_t);
template void addTileProducts(const TileRange&, const Planes<DoubleDouble>&, const RowTable&, Planes<DoubleDouble>&,
                              std::size_t, std::size_t);

}  // namespace engine
