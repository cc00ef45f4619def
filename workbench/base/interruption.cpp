#include "workbench/base/interruption.h"

#include <cstdlib>
#include <mutex>
#include <utility>

#include "workbench/base/standard_streams.h"
#include "workbench/base/terminal.h"

namespace workbench {

namespace {

struct Cleanings {
  std::mutex mutex;
  std::list<std::function<void()>> due;  // newest first
};

// Never destroyed: an interruption may come while the program ends.
Cleanings& cleanings() {
  static Cleanings& all = *new Cleanings;
  return all;
}

}  // namespace

// Nothing new can become due while the lock is held, and it is held to the end.
void endInterrupted(int exitCode) {
  Cleanings& all = cleanings();
  all.mutex.lock();
  for (const auto& clean : all.due) clean();
  putText(userErrorStream(), "interrupted: nothing more is written.\n");
  std::_Exit(exitCode);
}

DueCleaning::DueCleaning(std::function<void()> clean) {
  Cleanings& all = cleanings();
  const std::lock_guard lock(all.mutex);
  all.due.push_front(std::move(clean));
  place_ = all.due.begin();
}

DueCleaning::~DueCleaning() {
  Cleanings& all = cleanings();
  const std::lock_guard lock(all.mutex);
  all.due.erase(place_);
}

}  // namespace workbench
