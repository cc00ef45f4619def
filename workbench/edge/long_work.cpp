#include "host/long_work.h"

#include "workbench/edge/session.h"

int HostThreadsAllowed() {
  const workbench::Session* session = workbench::runningSession();
  return session == nullptr ? 1 : session->threads;
}

bool HostReportProgress(double share) {
  const workbench::Session* session = workbench::runningSession();
  return session == nullptr || !session->progress || session->progress(share);
}
