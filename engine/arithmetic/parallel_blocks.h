// Independent pieces of work on several threads, in blocks, with a way to watch and to stop.

#pragma once

#include <cstddef>
#include <functional>

namespace engine {

// Told the share done, 0 .. 1; false stops the work. Called from any of the threads, never from two at once.
using Progress = std::function<bool(double)>;

// Calls work(first, last) for ranges that cover 0 .. count - 1, on `jobs` threads (at least one, the caller's). Which
// thread gets which range is not determined: results must not depend on it. False when `progress` stopped it; work on
// some ranges is then missing. An exception of `work` reaches the caller after the other threads have ended.
bool forEachBlock(std::size_t count, std::size_t blockSize, std::size_t jobs, const Progress& progress,
                  const std::function<void(std::size_t, std::size_t)>& work);

}  // namespace engine
