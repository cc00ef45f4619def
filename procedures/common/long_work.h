// What the host allows long work, and what it is told of it.

#pragma once

#include <cstddef>
#include <functional>

namespace procedures {

// 1 in a host that does not say.
std::size_t threadsAllowed();

// Tells the host the share done, 0 to 1; false when it wants the work to stop. Empty in a host that does not listen.
std::function<bool(double)> hostProgress();

}  // namespace procedures
