// Where the program is installed.

#pragma once

#include <filesystem>

namespace workbench {

// The folder that holds the program's bin/, lib/ and share/, found from where the running program lies.
std::filesystem::path installationFolder();

}  // namespace workbench
