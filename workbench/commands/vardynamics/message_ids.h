// The lasting ids of what VARDYNAMICS tells.

#pragma once

#include <string>
#include <string_view>

namespace workbench::vardynamics {

// "" for a text that is not known.
std::string messageId(std::string_view message);

}  // namespace workbench::vardynamics
