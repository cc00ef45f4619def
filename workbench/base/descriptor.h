// File descriptors, as C's streams stand on them, on every system. Failures leave errno set.

#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace workbench {

inline constexpr int kStandardInput = 0;
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardError = 2;

// A new or emptied file; -1 when it cannot be made.
int createFile(const std::filesystem::path& file);
// A file that nobody can name and that is gone when it is closed: in memory where the system has such files, else in
// the folder; -1 when it cannot be made.
int createUnnamedFile(const std::filesystem::path& folder);
// 0, or -1: late failures of writing are told here.
int closeDescriptor(int descriptor);

// The number of bytes written or read, which may be fewer than asked for; -1 for a failure. Signals do not count.
std::ptrdiff_t writeSome(int descriptor, std::string_view bytes);
std::ptrdiff_t readSome(int descriptor, std::span<char> room);
// What the file holds from its begin to its end, as far as it can be read.
std::string contentsOf(int descriptor);

// A second descriptor of the same file, none of the standard streams'; programs that are started do not get it.
int duplicateDescriptor(int descriptor);
// From now on the target is the descriptor's file. -1 for a failure.
int redirectDescriptor(int descriptor, int target);

}  // namespace workbench
