// How long work is done, and how its caller follows it.

#pragma once

#include <cstddef>
#include <stdexcept>

#include "engine/arithmetic/parallel_blocks.h"

namespace vardynamics {

// No result depends on it.
struct Work {
  std::size_t jobs = 1;            // threads
  engine::Progress progress = {};  // of one piece of long work after another
};

// Thrown where `progress` asked for an end.
class Stopped : public std::runtime_error {
 public:
  Stopped() : std::runtime_error("The analysis was stopped") {}
};

}  // namespace vardynamics
