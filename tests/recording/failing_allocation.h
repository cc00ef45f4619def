// Memory that runs out when a test says so: operator new and malloc of this program, counted and made to fail.

#pragma once

#include <cstddef>

namespace recording {

// While it lives, the n-th allocation from now on fails, and all after it if told so; n = 0: none.
class FailingAllocation {
 public:
  FailingAllocation(std::size_t n, bool andAllAfter);
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;
  ~FailingAllocation();

  static std::size_t count();  // since the youngest began
};

// While it lives, allocations neither count nor fail: what a test keeps for itself.
class Spared {
 public:
  Spared();
  Spared(const Spared&) = delete;
  Spared& operator=(const Spared&) = delete;
  ~Spared();

 private:
  bool before_;
};

// Allocations made and not released.
std::ptrdiff_t livingAllocations();

}  // namespace recording
