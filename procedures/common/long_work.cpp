#include "procedures/common/long_work.h"

#include <algorithm>

#include "host/long_work.h"

namespace procedures {

#if defined(HOST_LONG_WORK)

std::size_t threadsAllowed() {
  return &HostThreadsAllowed == nullptr ? 1 : static_cast<std::size_t>(std::max(1, HostThreadsAllowed()));
}

std::function<bool(double)> hostProgress() {
  if (&HostReportProgress == nullptr) return {};
  return [](double share) { return HostReportProgress(share); };
}

#else

std::size_t threadsAllowed() {
  return 1;
}

std::function<bool(double)> hostProgress() {
  return {};
}

#endif

}  // namespace procedures
