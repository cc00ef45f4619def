// Where a TOML text opens a quote that it does not close.

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

}  // namespace workbench
