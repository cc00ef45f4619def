// Parts of composed commands.

#pragma once

#include <string>
#include <vector>

namespace workbench {

// Names of variables as they stand in a list.
std::string nameList(const std::vector<std::string>& variables);

}  // namespace workbench
