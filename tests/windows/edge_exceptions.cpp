// Exceptions over the edge between a program and a library that it loads, both ways.

#include <windows.h>

#include <cstdio>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>

#include "tests/windows/throwing.h"

namespace {

struct OwnError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace

void throwFromHost(int kind) {
  if (kind == kOwnError) throw OwnError("own");
  if (kind == kNoMemory) throw std::bad_alloc();
  throw 7;
}

int main() {
  const HMODULE library = LoadLibraryW(L"throwing.dll");
  const auto run = library == nullptr ? nullptr : GetProcAddress(library, "THROWING");
  if (run == nullptr) return 2;
  const auto caught = reinterpret_cast<int (*)(int)>(reinterpret_cast<void (*)()>(run));
  for (const int kind : {kOwnError, kNoMemory, kNumber}) {
    if (caught(kind) != kind || std::uncaught_exceptions() != 0) return 3;
  }
  try {
    caught(kRethrow);
    return 4;
  } catch (const OwnError& error) {
    if (std::string(error.what()) != "own" || std::uncaught_exceptions() != 0) return 5;
  }
  std::puts("windows: exceptions cross the edge both ways");
  return 0;
}
