// What is looked for in a TOML text beside its reader: a quote that is not closed, and keys too deep for it.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

struct OpenQuote {
  std::size_t line = 0;    // from 1
  std::size_t column = 0;  // likewise, in characters
  std::string quote;       // """, ''', " or '
};

// The first quote that is not closed, a single one in its line; nothing when all are.
std::optional<OpenQuote> findOpenQuote(std::string_view toml);

// The line of the first key of more than so many parts, as a.b.c has three; nothing when there is none. The reader
// makes a table within a table of each part, and takes them down by recursion.
std::optional<std::size_t> findDeepKey(std::string_view toml, std::size_t mostParts);

}  // namespace workbench
