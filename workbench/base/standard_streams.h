// The process's standard input, output and error.

#pragma once

#include <filesystem>
#include <string_view>

namespace workbench {

// The name that stands for standard input, or standard output, where a file is asked for.
inline constexpr const char* kStandardStream = "-";

// A descriptor of standard error as it was at the first call, also while the stream is led elsewhere.
int userErrorStream();

// Writes the bytes, after what C's and C++'s streams still hold. Throws OutputError.
void writeStandardOutput(std::string_view bytes);

// Ends the program as the system ends one whose reader went away, in silence; does nothing where it has no such end.
void endWithReader();

// Throws OutputError when something that was to be shown on standard output was lost.
void requireStandardOutput();

// Writes a whole file, or standard output when that is its name. Throws OutputError.
void writeOutput(const std::filesystem::path& target, std::string_view bytes);

}  // namespace workbench
