#include "workbench/base/interruption.h"

#include <pthread.h>
#include <signal.h>
#include <unistd.h>

#include <mutex>
#include <string_view>
#include <thread>
#include <utility>

#include "workbench/base/standard_streams.h"

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

bool isIgnored(int signal) {
  struct sigaction present {};
  return sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
}

// Nothing new can become due while the lock is held, and it is held to the end.
[[noreturn]] void end(int signal) {
  Cleanings& all = cleanings();
  all.mutex.lock();
  for (const auto& clean : all.due) clean();
  constexpr std::string_view word = "interrupted: nothing more is written.\n";
  [[maybe_unused]] const ssize_t written = ::write(userErrorStream(), word.data(), word.size());
  _exit(128 + signal);
}

}  // namespace

void endOnInterruption() {
  userErrorStream();
  sigset_t watched;
  sigemptyset(&watched);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    if (!isIgnored(signal)) sigaddset(&watched, signal);
  }
  pthread_sigmask(SIG_BLOCK, &watched, nullptr);
  std::thread([watched] {
    int signal = 0;
    while (sigwait(&watched, &signal) != 0) {
    }
    end(signal);
  }).detach();
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
