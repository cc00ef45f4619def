#include "workbench/base/utf8.h"

#include <array>
#include <cassert>

namespace workbench {

namespace {

// Bytes of the sequence that a lead byte announces; 0 when it announces none.
std::size_t sequenceLength(unsigned char lead) {
  if (lead < 0x80) return 1;
  if (lead < 0xc2) return 0;
  if (lead < 0xe0) return 2;
  if (lead < 0xf0) return 3;
  return lead < 0xf5 ? 4 : 0;
}

// Not overlong, no surrogate, inside Unicode.
bool wellFormed(char32_t value, std::size_t bytes) {
  constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
  return value >= least[bytes] && value <= 0x10ffff && (value < 0xd800 || value > 0xdfff);
}

}  // namespace

CodePoint firstCodePoint(std::string_view text) {
  assert(!text.empty());
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t bytes = sequenceLength(lead);
  if (bytes == 1) return {lead, 1, true};
  if (bytes == 0 || text.size() < bytes) return {};
  char32_t value = lead & (0x7fU >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    const auto next = static_cast<unsigned char>(text[i]);
    if ((next & 0xc0U) != 0x80U) return {};
    value = value << 6U | (next & 0x3fU);
  }
  if (!wellFormed(value, bytes)) return {};
  return {value, bytes, true};
}

std::u32string decodeUtf8(std::string_view bytes) {
  std::u32string characters;
  while (!bytes.empty()) {
    const CodePoint next = firstCodePoint(bytes);
    characters.push_back(next.value);
    bytes.remove_prefix(next.bytes);
  }
  return characters;
}

std::size_t countCharacters(std::string_view bytes) {
  std::size_t count = 0;
  for (; !bytes.empty(); ++count) bytes.remove_prefix(firstCodePoint(bytes).bytes);
  return count;
}

std::string encodeUtf8(std::u32string_view characters) {
  std::string bytes;
  for (const char32_t character : characters) {
    const auto continuation = [&](unsigned shift) {
      bytes.push_back(static_cast<char>(0x80U | ((character >> shift) & 0x3FU)));
    };
    if (character < 0x80) {
      bytes.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
      bytes.push_back(static_cast<char>(0xC0U | (character >> 6)));
      continuation(0);
    } else if (character < 0x10000) {
      bytes.push_back(static_cast<char>(0xE0U | (character >> 12)));
      continuation(6);
      continuation(0);
    } else {
      bytes.push_back(static_cast<char>(0xF0U | (character >> 18)));
      continuation(12);
      continuation(6);
      continuation(0);
    }
  }
  return bytes;
}

}  // namespace workbench
