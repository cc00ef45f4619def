// The innermost loop of the engine, in the widest instructions that the processor has.

#pragma once

#include <array>
#include <cstddef>
#include <vector>

namespace engine {

// Columns of one tile; matrices that kernels write to have rows of a multiple of this.
inline constexpr std::size_t kTileColumns = 8;
inline constexpr std::size_t kTileRows = 8;

constexpr std::size_t roundUpToTile(std::size_t count) {
  return (count + kTileColumns - 1) / kTileColumns * kTileColumns;
}

// target(i, j) += sum over s = 0..steps-1, ascending, of factors(s, i) * rows[s][column + j], for the rows i of the
// tile and j = 0..7; the sum is formed from zero and then added. Element (s, i) of factors is at s * factorStride + i,
// element (i, j) of the target at i * targetStride + j. The second plane of each array holds the low parts of numbers
// of twice the precision; kernels in plain double precision use only the first.
struct TileJob {
  std::size_t steps = 0;
  std::array<const double*, 2> factors{};
  std::size_t factorStride = 0;
  std::array<const double* const*, 2> rows{};
  std::size_t column = 0;
  std::array<double*, 2> target{};
  std::size_t targetStride = 0;
};

using TileKernel = void (*)(const TileJob&);

// Kernels for tiles of 1..8 rows. All sets give the same bits: lanes are elements, so that each element's sum keeps its
// order, and no multiplication is fused with an addition.
struct KernelSet {
  const char* name;
  std::array<TileKernel, kTileRows> plain;
  std::array<TileKernel, kTileRows> extended;
};

// The sets that this processor can run, narrowest first: "baseline", then "avx2" and "avx512" where there are.
std::vector<const KernelSet*> availableKernels();

// The widest available set, or the one that the environment variable VARMODEL_KERNEL names when the process first asks.
const KernelSet& activeKernels();

// Replaces the active set.
void activateKernels(const KernelSet& kernels);

}  // namespace engine
