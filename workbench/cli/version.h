// Which program this is: version, what it was built from and with, and which parts it finds.

#pragma once

#include <string>

namespace workbench {

// As CMake's project has it ("1.2.0").
std::string programVersion();

// What `--version` shows: the version on the first line, then the facts of the build and of the installation.
std::string versionText();

}  // namespace workbench
