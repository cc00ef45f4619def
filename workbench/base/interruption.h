// Ctrl-C and its kind: the program ends at once, wherever it is, and leaves nothing half done.

#pragma once

#include <functional>
#include <list>

namespace workbench {

// From now on an interruption calls endInterrupted(). To be called before there is a second thread. POSIX: SIGINT,
// SIGTERM and SIGHUP, those that were not ignored, exit code 128 + signal. Windows: Ctrl-C, Ctrl-Break and a closed
// console, exit code 130.
void endOnInterruption();

// Does all cleaning that is due, says so, and ends the program.
[[noreturn]] void endInterrupted(int exitCode);

// Cleaning that an interruption makes due while this lives; called on another thread than its maker's.
class DueCleaning {
 public:
  explicit DueCleaning(std::function<void()> clean);
  DueCleaning(const DueCleaning&) = delete;
  DueCleaning& operator=(const DueCleaning&) = delete;
  ~DueCleaning();

 private:
  std::list<std::function<void()>>::iterator place_;
};

}  // namespace workbench
