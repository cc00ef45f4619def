// The workbench's way to the state that the host classes hide from a procedure.

#pragma once

#include <type_traits>
#include <utility>

#include "host/edge.h"

struct HostAccess {
  template <typename HostClass>
  static auto& state(HostClass& object) {
    return *object.state_;
  }
  template <typename HostClass>
  static const auto& state(const HostClass& object) {
    return *object.state_;
  }
};

namespace workbench {

// The type of a host class's state, which the class keeps private.
template <typename HostClass>
using StateOf = std::remove_cvref_t<decltype(HostAccess::state(std::declval<HostClass&>()))>;

template <typename HostClass>
StateOf<HostClass>& stateOf(HostClass& object) {
  return HostAccess::state(object);
}
template <typename HostClass>
const StateOf<HostClass>& stateOf(const HostClass& object) {
  return HostAccess::state(object);
}

}  // namespace workbench
