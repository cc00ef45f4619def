// The bodies of the tile kernels, for any vector width: included by kernels.cpp alone.
//
// Everything is forced inline into functions that are compiled for one instruction set each, and vectors are never
// passed by value, since their calling convention depends on that set.

#pragma once

#include <cstring>

#include "engine/arithmetic/double_double.h"
#include "engine/arithmetic/kernels.h"

namespace engine {

using Vec2 = double __attribute__((vector_size(16)));
using Vec4 = double __attribute__((vector_size(32)));
using Vec8 = double __attribute__((vector_size(64)));

template <class Vec>
inline constexpr std::size_t kLanes = sizeof(Vec) / sizeof(double);

template <class Vec>
[[gnu::always_inline]] inline void load(const double* source, Vec& target) {
  std::memcpy(&target, source, sizeof target);
}

template <class Vec>
[[gnu::always_inline]] inline void store(const Vec& source, double* target) {
  std::memcpy(target, &source, sizeof source);
}

// Rows firstRow .. firstRow + Rows - 1 and Vectors vectors from column `first` of a tile.
template <class Vec, std::size_t Rows, std::size_t Vectors>
[[gnu::always_inline]] inline void plainBlock(const TileJob& job, std::size_t firstRow, std::size_t first) {
  Vec sums[Rows][Vectors] = {};
  const double* factors = job.factors[0] + firstRow;
  for (std::size_t s = 0; s < job.steps; ++s, factors += job.factorStride) {
    const double* row = job.rows[0][s] + job.column + first;
    Vec values[Vectors];
#pragma GCC unroll 8
    for (std::size_t v = 0; v < Vectors; ++v) load(row + v * kLanes<Vec>, values[v]);
#pragma GCC unroll 8
    for (std::size_t i = 0; i < Rows; ++i) {
#pragma GCC unroll 8
      for (std::size_t v = 0; v < Vectors; ++v) sums[i][v] += values[v] * factors[i];
    }
  }
#pragma GCC unroll 8
  for (std::size_t i = 0; i < Rows; ++i) {
#pragma GCC unroll 8
    for (std::size_t v = 0; v < Vectors; ++v) {
      double* target = job.target[0] + (firstRow + i) * job.targetStride + first + v * kLanes<Vec>;
      Vec total;
      load(target, total);
      total += sums[i][v];
      store(total, target);
    }
  }
}

// A tile of Rows rows in blocks of at most BlockRows rows and Vectors vectors: as many sums as there are registers.
template <class Vec, std::size_t Rows, std::size_t BlockRows, std::size_t Vectors>
[[gnu::always_inline]] inline void plainTile(const TileJob& job) {
  constexpr std::size_t kWidth = Vectors * kLanes<Vec>;
  constexpr std::size_t kUpper = Rows > BlockRows ? (Rows + 1) / 2 : Rows;
  for (std::size_t first = 0; first < kTileColumns; first += kWidth) {
    plainBlock<Vec, kUpper, Vectors>(job, 0, first);
    if constexpr (kUpper < Rows) plainBlock<Vec, Rows - kUpper, Vectors>(job, kUpper, first);
  }
}

// Rows firstRow .. firstRow + Rows - 1, one vector from column `first`: Ogita, Rump & Oishi's twofold dot product
// (2005), with low parts in both operands. Several rows at a time, so that none waits for its last sum.
template <class Vec, std::size_t Rows>
[[gnu::always_inline]] inline void extendedBlock(const TileJob& job, std::size_t firstRow, std::size_t first) {
  Vec sums[Rows] = {};
  Vec lows[Rows] = {};
  for (std::size_t s = 0; s < job.steps; ++s) {
    Vec value, valueLow, valueUpper, valueLower;
    load(job.rows[0][s] + job.column + first, value);
    load(job.rows[1][s] + job.column + first, valueLow);
    splitInHalves(value, valueUpper, valueLower);
#pragma GCC unroll 8
    for (std::size_t i = 0; i < Rows; ++i) {
      const std::size_t element = s * job.factorStride + firstRow + i;
      const Vec factor = Vec{} + job.factors[0][element];
      Vec factorUpper, factorLower, product, error, carry;
      splitInHalves(factor, factorUpper, factorLower);
      exactProduct(factor, factorUpper, factorLower, value, valueUpper, valueLower, product, error);
      exactSum(sums[i], product, sums[i], carry);
      lows[i] += carry + (error + (valueLow * job.factors[0][element] + value * job.factors[1][element]));
    }
  }
#pragma GCC unroll 8
  for (std::size_t i = 0; i < Rows; ++i) {
    const std::size_t element = (firstRow + i) * job.targetStride + first;
    Vec target, targetLow, carry;
    load(job.target[0] + element, target);
    load(job.target[1] + element, targetLow);
    exactSum(target, sums[i], target, carry);
    lows[i] += carry + targetLow;
    exactSum(target, lows[i], target, carry);
    store(target, job.target[0] + element);
    store(carry, job.target[1] + element);
  }
}

// Blocks of BlockRows rows; a last, lower one takes what is left.
template <class Vec, std::size_t Rows, std::size_t BlockRows>
[[gnu::always_inline]] inline void extendedTile(const TileJob& job) {
  constexpr std::size_t kWhole = Rows / BlockRows * BlockRows;
  for (std::size_t first = 0; first < kTileColumns; first += kLanes<Vec>) {
    for (std::size_t i = 0; i < kWhole; i += BlockRows) extendedBlock<Vec, BlockRows>(job, i, first);
    if constexpr (kWhole < Rows) extendedBlock<Vec, Rows - kWhole>(job, kWhole, first);
  }
}

}  // namespace engine
