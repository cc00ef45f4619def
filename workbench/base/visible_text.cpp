#include "workbench/base/visible_text.h"

#include <algorithm>
#include <array>

#include "workbench/base/utf8.h"

namespace workbench {

namespace {

struct Range {
  char32_t first, last;
};

// Controls, and what Unicode calls default ignorable, but for combining marks, variation selectors and joiners.
constexpr std::array kActing = {Range{0x80, 0x9f},     Range{0xad, 0xad},       Range{0x61c, 0x61c},
                                Range{0x115f, 0x1160}, Range{0x180e, 0x180e},   Range{0x200b, 0x200b},
                                Range{0x200e, 0x200f}, Range{0x2028, 0x202e},   Range{0x2060, 0x206f},
                                Range{0x3164, 0x3164}, Range{0xfeff, 0xfeff},   Range{0xffa0, 0xffa0},
                                Range{0xfff9, 0xfffb}, Range{0x1d173, 0x1d17a}, Range{0xe0000, 0xe007f}};

bool acts(char32_t character) {
  return std::ranges::any_of(kActing, [&](Range one) { return character >= one.first && character <= one.last; });
}

// Between the two bytes beside it, neither of which is ASCII.
bool joins(char32_t character, std::string_view before, std::string_view behind) {
  const auto inScript = [](char c) { return (static_cast<unsigned char>(c) & 0x80U) != 0; };
  const bool joiner = character == 0x200c || character == 0x200d;
  return joiner && !before.empty() && !behind.empty() && inScript(before.back()) && inScript(behind.front());
}

bool hides(char32_t character, std::string_view before, std::string_view behind) {
  const bool joiner = character == 0x200c || character == 0x200d;
  return acts(character) || (joiner && !joins(character, before, behind));
}

}  // namespace

std::string visibleText(std::string_view text) {
  std::string visible;
  for (std::size_t at = 0; at < text.size();) {
    const CodePoint next = firstCodePoint(text.substr(at));
    if (next.value < 0x20 || next.value == 0x7f) {
      visible += {'^', static_cast<char>(next.value ^ 0x40U)};
    } else if (!next.valid || hides(next.value, text.substr(0, at), text.substr(at + next.bytes))) {
      visible += kReplacementText;
    } else {
      visible += text.substr(at, next.bytes);
    }
    at += next.bytes;
  }
  return visible;
}

std::string visibleLines(std::string_view text) {
  std::string visible;
  for (;;) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    visible += visibleText(text.substr(0, end));
    if (end == text.size()) return visible;
    visible += '\n';
    text.remove_prefix(end + 1);
  }
}

}  // namespace workbench
