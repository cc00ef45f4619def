#include "tests/windows/throwing.h"

#include <new>
#include <stdexcept>

// The kind of what the host threw, as it was caught here; with kRethrow it goes on to the host.
extern "C" __declspec(dllexport) int THROWING(int kind) {
  try {
    throwFromHost(kind == kRethrow ? kOwnError : kind);
  } catch (const std::bad_alloc&) {
    return kNoMemory;
  } catch (const std::runtime_error&) {
    if (kind == kRethrow) throw;
    return kOwnError;
  } catch (int number) {
    return number == 7 ? kNumber : -1;
  }
  return -1;
}
