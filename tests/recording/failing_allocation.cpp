#include "tests/recording/failing_allocation.h"

#include <cerrno>
#include <cstdlib>
#include <new>

// The linker gives this program's calls of malloc and its kin to the functions below.
extern "C" {
void* __real_malloc(std::size_t size);
void* __real_realloc(void* memory, std::size_t size);
void __real_free(void* memory);
}

namespace recording {
namespace {

struct Plan {
  std::size_t number = 0;
  std::size_t failing = 0;
  bool andAllAfter = false;
  bool counts = false;
  std::ptrdiff_t living = 0;
};

Plan plan;

bool fails() {
  if (!plan.counts) return false;
  ++plan.number;
  return plan.number == plan.failing || (plan.andAllAfter && plan.failing > 0 && plan.number > plan.failing);
}

void* counted(void* memory) {
  if (memory != nullptr) ++plan.living;
  return memory;
}

void* allocate(std::size_t size) {
  return fails() ? nullptr : counted(__real_malloc(size > 0 ? size : 1));
}

void release(void* memory) {
  if (memory != nullptr) --plan.living;
  __real_free(memory);
}

}  // namespace

FailingAllocation::FailingAllocation(std::size_t n, bool andAllAfter) {
  plan.number = 0;
  plan.failing = n;
  plan.andAllAfter = andAllAfter;
  plan.counts = true;
}

FailingAllocation::~FailingAllocation() {
  plan.counts = false;
}

std::size_t FailingAllocation::count() {
  return plan.number;
}

Spared::Spared() : before_(plan.counts) {
  plan.counts = false;
}

Spared::~Spared() {
  plan.counts = before_;
}

std::ptrdiff_t livingAllocations() {
  return plan.living;
}

}  // namespace recording

extern "C" {
void* __wrap_malloc(std::size_t size) {
  return recording::allocate(size);
}
void* __wrap_realloc(void* memory, std::size_t size) {
  if (recording::fails()) return nullptr;
  if (memory == nullptr) ++recording::plan.living;
  return __real_realloc(memory, size);
}
void __wrap_free(void* memory) {
  recording::release(memory);
}
}

void* operator new(std::size_t size) {
  void* memory = recording::allocate(size);
  return memory != nullptr ? memory : throw std::bad_alloc();
}
void* operator new[](std::size_t size) {
  return operator new(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return recording::allocate(size);
}
void operator delete(void* memory) noexcept {
  recording::release(memory);
}
void operator delete[](void* memory) noexcept {
  recording::release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  recording::release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  recording::release(memory);
}
