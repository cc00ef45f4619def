// The first lines of a delimited text file, as far as they tell what a reader of whole tables cannot.

#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace workbench {

// Those within about the first 64 KiB of the file, without their line ends.
std::vector<std::string> firstLines(const std::filesystem::path& source);

// The longest run of lines that have equally many values, two or more.
struct TableStart {
  std::size_t before = 0;  // lines above it
  std::size_t end = 0;     // lines up to its last one
  std::string line;        // its first one
  bool isHeader = false;   // which holds names: none of its values is a number
};
// Nothing when all lines belong to that run, or it has fewer than two.
std::optional<TableStart> tableStart(const std::vector<std::string>& lines);

// The one separator of which all lines from the first on, the empty ones apart, hold equally many outside of quotes.
// Nothing when no separator does, or several do.
std::optional<char> commonSeparator(std::span<const std::string> lines);

// The number of the first line, from 1, that is not UTF-8; 0 when all are.
std::size_t firstLineOutsideUtf8(const std::vector<std::string>& lines);

}  // namespace workbench
