#include "workbench/base/visible_text.h"

#include "workbench/base/utf8.h"

namespace workbench {

namespace {

bool acts(char32_t character) {
  return (character >= 0x80 && character <= 0x9f) || (character >= 0x2028 && character <= 0x202e) ||
         (character >= 0x2066 && character <= 0x2069);
}

}  // namespace

std::string visibleText(std::string_view text) {
  std::string visible;
  for (std::size_t at = 0; at < text.size();) {
    const CodePoint next = firstCodePoint(text.substr(at));
    if (next.value < 0x20 || next.value == 0x7f) {
      visible += {'^', static_cast<char>(next.value ^ 0x40U)};
    } else if (!next.valid || acts(next.value)) {
      visible += kReplacementText;
    } else {
      visible += text.substr(at, next.bytes);
    }
    at += next.bytes;
  }
  return visible;
}

}  // namespace workbench
