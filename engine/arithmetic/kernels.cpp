#include "engine/arithmetic/kernels.h"

#include <cstdlib>
#include <string_view>
#include <utility>

#include "engine/arithmetic/tile.h"

namespace engine {
namespace {

template <std::size_t Rows>
void plainBaseline(const TileJob& job) {
  plainTile<Vec2, Rows, 4, 2>(job);
}

template <std::size_t Rows>
void extendedBaseline(const TileJob& job) {
  extendedTile<Vec2, Rows, 1>(job);
}

#if defined(__x86_64__)
template <std::size_t Rows>
[[gnu::target("avx2")]] void plainAvx2(const TileJob& job) {
  plainTile<Vec4, Rows, 6, 2>(job);
}

template <std::size_t Rows>
[[gnu::target("avx2")]] void extendedAvx2(const TileJob& job) {
  extendedTile<Vec4, Rows, 2>(job);
}

template <std::size_t Rows>
[[gnu::target("avx512f")]] void plainAvx512(const TileJob& job) {
  plainTile<Vec8, Rows, 8, 1>(job);
}

template <std::size_t Rows>
[[gnu::target("avx512f")]] void extendedAvx512(const TileJob& job) {
  extendedTile<Vec8, Rows, 4>(job);
}
#endif

template <std::size_t... Index>
std::vector<const KernelSet*> listKernels(std::index_sequence<Index...>) {
  static const KernelSet baseline{"baseline", {plainBaseline<Index + 1>...}, {extendedBaseline<Index + 1>...}};
  std::vector<const KernelSet*> sets = {&baseline};
#if defined(__x86_64__)
  static const KernelSet avx2{"avx2", {plainAvx2<Index + 1>...}, {extendedAvx2<Index + 1>...}};
  static const KernelSet avx512{"avx512", {plainAvx512<Index + 1>...}, {extendedAvx512<Index + 1>...}};
  if (__builtin_cpu_supports("avx2")) sets.push_back(&avx2);
  if (__builtin_cpu_supports("avx512f")) sets.push_back(&avx512);
#endif
  return sets;
}

const KernelSet* chooseKernels() {
  const std::vector<const KernelSet*> sets = availableKernels();
  const char* wanted = std::getenv("VARMODEL_KERNEL");
  for (const KernelSet* set : sets) {
    if (wanted != nullptr && std::string_view(wanted) == set->name) return set;
  }
  return sets.back();
}

const KernelSet*& activeSlot() {
  static const KernelSet* active = chooseKernels();
  return active;
}

}  // namespace

std::vector<const KernelSet*> availableKernels() {
  return listKernels(std::make_index_sequence<kTileRows>());
}

const KernelSet& activeKernels() {
  return *activeSlot();
}

void activateKernels(const KernelSet& kernels) {
  activeSlot() = &kernels;
}

}  // namespace engine
