// The program gnuplot as a filter.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

// What gnuplot writes to its standard output for the commands; nothing when it cannot be started (it is not installed).
// A command that fails leaves out what it would have written. Runs no shell and reads none of the user's gnuplot
// settings. Both streams are temporary files, which never fill up; throws std::system_error when there can be none.
std::optional<std::string> runGnuplot(std::string_view commands);

}  // namespace workbench
