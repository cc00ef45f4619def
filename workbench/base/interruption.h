// Ctrl-C and its kind: the program ends at once, wherever it is, and leaves nothing half done.

#pragma once

#include <functional>
#include <list>

namespace workbench {

// From now on SIGINT, SIGTERM and SIGHUP, those that were not ignored, end the program with exit code 128 + signal, a
// word on standard error, and all cleaning that is due done. To be called before there is a second thread.
void endOnInterruption();

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
