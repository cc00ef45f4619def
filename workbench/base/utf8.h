// Reading and writing UTF-8.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

inline constexpr char32_t kReplacementCharacter = 0xfffd;
inline constexpr std::string_view kReplacementText = "\xef\xbf\xbd";

struct CodePoint {
  char32_t value = kReplacementCharacter;
  std::size_t bytes = 1;
  bool valid = false;
};

// The first code point of a non-empty text; not valid, and one byte long, where no well-formed sequence begins.
CodePoint firstCodePoint(std::string_view text);

// All code points; every byte that is no part of a well-formed sequence becomes one replacement character.
std::u32string decodeUtf8(std::string_view bytes);

// Number of code points, counted as decodeUtf8 counts them.
std::size_t countCharacters(std::string_view bytes);

std::string encodeUtf8(std::u32string_view characters);

}  // namespace workbench
