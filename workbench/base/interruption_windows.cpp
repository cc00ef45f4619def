#include "workbench/base/interruption.h"
#include "workbench/base/standard_streams.h"
#include "workbench/base/windows_api.h"

namespace workbench {

namespace {

constexpr int kInterrupted = 130;  // as an interrupted program ends elsewhere

// The system calls it on a thread of its own.
BOOL WINAPI onControl(DWORD /*event*/) {
  endInterrupted(kInterrupted);
}

}  // namespace

void endOnInterruption() {
  userErrorStream();
  SetConsoleCtrlHandler(onControl, TRUE);
}

}  // namespace workbench
