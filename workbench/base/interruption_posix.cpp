#include <pthread.h>
#include <signal.h>

#include <thread>

#include "workbench/base/interruption.h"
#include "workbench/base/standard_streams.h"

namespace workbench {

namespace {

bool isIgnored(int signal) {
  struct sigaction present {};
  return sigaction(signal, nullptr, &present) == 0 && present.sa_handler == SIG_IGN;
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
    endInterrupted(128 + signal);
  }).detach();
}

}  // namespace workbench
