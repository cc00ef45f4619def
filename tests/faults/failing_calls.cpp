// A library to preload: one call of a kind to the system fails, the n-th or every one from the n-th on.
//
// FAILING_CALL names the kind (allocate, write, short_write, rename, fsync, close, open, read, make_folder), FAILING_AT
// the n, from 1 on (0: none), FAILING_ON=1 says "from n on". When the program ends, the number of calls of that kind is
// written to the file FAILING_COUNT. An allocation counts where the program's own modules made it, directly or through
// the C++ library: what a foreign library does without memory is not ours to say. Programs that the program starts are
// left alone.

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <unistd.h>
#include <unwind.h>

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

struct Plan {
  const char* kind = "";
  long at = 0;
  bool on = false;
  const char* countFile = nullptr;
};

Plan plan;
std::atomic<long> calls{0};
thread_local bool inside = false;  // of a look at the stack, which may allocate

__attribute__((constructor)) void readPlan() {
  const auto given = [](const char* name) { return std::getenv(name); };
  if (given("FAILING_CALL") == nullptr) return;
  plan = {strdup(given("FAILING_CALL")), std::atol(given("FAILING_AT")), given("FAILING_ON") != nullptr,
          given("FAILING_COUNT") != nullptr ? strdup(given("FAILING_COUNT")) : nullptr};
  unsetenv("LD_PRELOAD");
}

__attribute__((destructor)) void writeCount() {
  if (plan.countFile == nullptr) return;
  const long count = calls;
  plan.kind = "";
  if (std::FILE* file = std::fopen(plan.countFile, "w")) {
    std::fprintf(file, "%ld\n", count);
    std::fclose(file);
  }
}

bool isPlanned(const char* kind) {
  return std::strcmp(plan.kind, kind) == 0;
}

bool failsNow() {
  const long number = ++calls;
  return plan.at > 0 && (number == plan.at || (plan.on && number > plan.at));
}

bool fails(const char* kind, int code) {
  if (!isPlanned(kind) || !failsNow()) return false;
  errno = code;
  return true;
}

template <typename Function>
Function next(Function, const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}
#define NEXT(name) next(&::name, #name)

// "" is the program itself.
const char* moduleOf(void* address) {
  dl_find_object object{};
  return _dl_find_object(address, &object) == 0 ? object.dlfo_link_map->l_name : "nowhere";
}

bool contains(const char* text, const char* part) {
  return std::strstr(text, part) != nullptr;
}

// The first module on the stack that is neither this library nor a part of the C and C++ libraries.
_Unwind_Reason_Code findCaller(_Unwind_Context* context, void* found) {
  const char* module = moduleOf(reinterpret_cast<void*>(_Unwind_GetIP(context)));
  if (contains(module, "failing_calls") || contains(module, "libstdc++") || contains(module, "libc.so")) {
    return _URC_NO_REASON;
  }
  *static_cast<const char**>(found) = module;
  return _URC_END_OF_STACK;
}

bool isOurs(const char* module) {
  return *module == '\0' || contains(module, "_procedure.so");
}

bool allocationFails() {
  if (inside || !isPlanned("allocate")) return false;
  inside = true;
  const char* caller = "nowhere";
  _Unwind_Backtrace(findCaller, &caller);
  inside = false;
  return isOurs(caller) && failsNow();
}

extern "C" void* __libc_malloc(std::size_t size);
extern "C" void* __libc_realloc(void* memory, std::size_t size);

void* allocate(std::size_t size) {
  void* memory = allocationFails() ? nullptr : __libc_malloc(size > 0 ? size : 1);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return allocationFails() ? nullptr : __libc_malloc(size > 0 ? size : 1);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

extern "C" {

void* malloc(std::size_t size) {
  return isPlanned("allocate") && isOurs(moduleOf(__builtin_return_address(0))) && failsNow() ? nullptr
                                                                                              : __libc_malloc(size);
}

void* realloc(void* memory, std::size_t size) {
  return isPlanned("allocate") && isOurs(moduleOf(__builtin_return_address(0))) && failsNow()
             ? nullptr
             : __libc_realloc(memory, size);
}

ssize_t write(int file, const void* bytes, std::size_t size) {
  static const auto real = NEXT(write);
  if (fails("write", ENOSPC)) return -1;
  const bool isShort = size > 1 && isPlanned("short_write") && failsNow();
  return real(file, bytes, isShort ? size / 2 : size);
}

int rename(const char* from, const char* to) {
  static const auto real = NEXT(rename);
  return fails("rename", EIO) ? -1 : real(from, to);
}

int fsync(int file) {
  static const auto real = NEXT(fsync);
  return fails("fsync", EIO) ? -1 : real(file);
}

int close(int file) {
  static const auto real = NEXT(close);
  const int result = real(file);
  return fails("close", EIO) ? -1 : result;
}

int open(const char* path, int flags, ...) {
  static const auto real = NEXT(open);
  va_list more;
  va_start(more, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
  va_end(more);
  return fails("open", EMFILE) ? -1 : real(path, flags, mode);
}

ssize_t read(int file, void* bytes, std::size_t size) {
  static const auto real = NEXT(read);
  return fails("read", EIO) ? -1 : real(file, bytes, size);
}

char* mkdtemp(char* pattern) {
  static const auto real = NEXT(mkdtemp);
  return fails("make_folder", EACCES) ? nullptr : real(pattern);
}
}
