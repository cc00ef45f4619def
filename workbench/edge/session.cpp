#include "workbench/edge/session.h"

#include <cassert>

namespace workbench {

namespace {
Session* current = nullptr;
}

double StageClock::between(Mark from, Mark to) const {
  const Clock::time_point never{};
  if (marks_[from] == never || marks_[to] == never) return 0.0;
  return std::chrono::duration<double>(marks_[to] - marks_[from]).count();
}

Session& currentSession() {
  assert(current != nullptr);
  return *current;
}

const Session* runningSession() {
  return current;
}

SessionScope::SessionScope(Session& session) : previous_(current) {
  current = &session;
}

SessionScope::~SessionScope() {
  current = previous_;
}

}  // namespace workbench
