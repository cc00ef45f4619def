// Paths out of texts.

#pragma once

#include <filesystem>
#include <string_view>

namespace workbench {

// The path that a text in UTF-8 names. Windows would take the bytes of a path made from a plain std::string for another
// encoding; path::string() gives UTF-8 on every system. Where the text is no UTF-8 the path names nothing that exists.
inline std::filesystem::path pathFromUtf8(std::string_view text) {
  const auto* begin = reinterpret_cast<const char8_t*>(text.data());
  return std::filesystem::path(begin, begin + text.size());
}

}  // namespace workbench
