#include "procedures/common/long_work.h"

#include <algorithm>

#include "host/long_work.h"

namespace procedures {

#if defined(HOST_LONG_WORK)

namespace {

// Asked of a parameter: where no symbol can be missing, compilers refuse the comparison itself.
template <class Function>
bool isThere(Function* function) {
  return function != nullptr;
}

}  // namespace

std::size_t threadsAllowed() {
  return isThere(&HostThreadsAllowed) ? static_cast<std::size_t>(std::max(1, HostThreadsAllowed())) : 1;
}

std::function<bool(double)> hostProgress() {
  if (!isThere(&HostReportProgress)) return {};
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
